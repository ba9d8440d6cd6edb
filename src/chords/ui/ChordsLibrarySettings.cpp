#include "chords/ui/ChordsLibrarySettings.h"

#include "chords/ui/ChordsLibrary.h"
#include "state/StateKeys.h"

namespace zt {

ChordsLibrarySettings::ChordsLibrarySettings(ChordsLibrary* chordsLibrary, QObject* parent)
    : ToolSettings(switchOver(chordsLibrary, &ChordsLibrary::flag, &ChordsLibrary::setShowNotes,
                              QStringLiteral("Show notes"), QStringLiteral("showNotes"),
                              state::chords::kNotes.name, SaveMoment::Left),
                   capoOver(chordsLibrary, &ChordsLibrary::capo, &ChordsLibrary::setCapo,
                            state::chords::kCapo.name),
                   parent) {}

}  // namespace zt
