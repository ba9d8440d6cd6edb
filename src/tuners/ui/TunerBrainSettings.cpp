#include "tuners/ui/TunerBrainSettings.h"

#include "state/StateKeys.h"
#include "tuners/ui/TunerBrain.h"

namespace zt {

TunerBrainSettings::TunerBrainSettings(TunerBrain* tunerBrain, QObject* parent)
    : ToolSettings(switchOver(tunerBrain, &TunerBrain::loopSound, &TunerBrain::setLoopSound,
                              QStringLiteral("Loop"), QStringLiteral("loop"),
                              state::brain::kLoop.name, SaveMoment::Flipped),
                   parent) {}

}  // namespace zt
