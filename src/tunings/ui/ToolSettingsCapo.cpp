// The capo row of a tool's settings page.
#include <algorithm>
#include <utility>

#include "chords/Capo.h"
#include "tunings/ui/ToolSettings.h"
#include "tunings/ui/ToolSettingsDelegate.h"

namespace zt {

ToolSettings::ToolSettings(Switch toolSwitch, Capo capo, QObject* parent)
    : ToolSettings(std::move(toolSwitch), parent) {
    capo_ = std::move(capo);
    readCapo();
}

QString ToolSettings::capoText() const {
    return QString::fromStdString(chords::capoFretText(capoFret_));
}

void ToolSettings::readCapo() {
    const int fret = capo_.read ? capo_.read() : 0;
    if (fret != capoFret_) {
        capoFret_ = fret;
        emit capoChanged();
    }
}

void ToolSettings::stepCapo(int frets) {
    if (!capo_.read)
        return;
    const int fret = std::clamp(capoFret_ + frets, 0, chords::kMaxCapo);
    if (fret == capoFret_)
        return;
    capoFret_ = fret;
    if (capo_.write)
        capo_.write(fret);
    // The tool may refuse a fret (a tuning that cannot be raised so far).
    readCapo();
    emit capoChanged();
    if (delegate_)
        delegate_->saveSettings({{capo_.key, capoFret_}});
}

}  // namespace zt
