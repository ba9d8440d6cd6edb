#include "tuners/ui/TunerBrainSettings.h"

#include "state/StateKeys.h"
#include "tuners/ui/TunerBrain.h"

namespace zt {

TunerBrainSettings::TunerBrainSettings(TunerBrain* tunerBrain, QObject* parent)
    : ToolSettings(
          switchOver(tunerBrain, &TunerBrain::loopSound, &TunerBrain::setLoopSound,
                     QStringLiteral("Loop"), QStringLiteral("loop"), state::brain::kLoop.name,
                     SaveMoment::Flipped),
          capoOver(tunerBrain, &TunerBrain::capo, &TunerBrain::setCapo, state::brain::kCapo.name),
          parent) {}

}  // namespace zt
