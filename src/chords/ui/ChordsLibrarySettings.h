#pragma once
// The chords settings page: its switch is "Show notes" (note names on the
// neck instead of finger numbers), which the chords screen follows at once
// and which is saved as the page goes; its capo row moves the capo the
// fingerings are shown from.

#include <QtQml/qqmlregistration.h>

#include "tunings/ui/ToolSettings.h"

namespace zt {

class ChordsLibrary;

class ChordsLibrarySettings : public zt::ToolSettings {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Created by the shell")

public:
    // The chords screen must outlive this screen.
    explicit ChordsLibrarySettings(ChordsLibrary* chordsLibrary, QObject* parent = nullptr);

    bool isShowNotes() const { return isOn(); }
    void switcherNotesAction() { switcherAction(); }
};

}  // namespace zt
