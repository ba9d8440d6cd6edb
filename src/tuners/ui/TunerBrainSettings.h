#pragma once
// The by-ear tuner's settings page: its switch is "Loop" (a touched string
// repeats its tone until it is touched again), which the by-ear tuner
// follows at once and which is saved at once; its capo row raises every
// string to the note it sounds with a capo.

#include <QtQml/qqmlregistration.h>

#include "tunings/ui/ToolSettings.h"

namespace zt {

class TunerBrain;

class TunerBrainSettings : public zt::ToolSettings {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Created by the shell")

public:
    // The by-ear tuner must outlive this screen.
    explicit TunerBrainSettings(TunerBrain* tunerBrain, QObject* parent = nullptr);
};

}  // namespace zt
