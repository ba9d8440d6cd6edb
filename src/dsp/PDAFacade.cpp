#include "dsp/PDAFacade.h"

#include "dsp/FinePDA.h"
#include "dsp/NamedPDAs.h"
#include "dsp/OvertonePDA.h"

namespace zt {

namespace {
template <class Detector>
Detector& shared(const TaperSettings& settings) {
    static Detector instance(settings);
    instance.changeTaperSettings(settings);
    return instance;
}
}  // namespace

CepstrumPDA& CepstrumPDA::getInstance(const TaperSettings& settings) {
    return shared<CepstrumPDA>(settings);
}
MaximumLikelihoodPDA& MaximumLikelihoodPDA::getInstance(const TaperSettings& settings) {
    return shared<MaximumLikelihoodPDA>(settings);
}
SingleMaximumPDA& SingleMaximumPDA::getInstance(const TaperSettings& settings) {
    return shared<SingleMaximumPDA>(settings);
}
OvertonePDA& OvertonePDA::getInstance(const TaperSettings& settings) {
    return shared<OvertonePDA>(settings);
}
FinePDA& FinePDA::getInstance(const TaperSettings& settings) {
    return shared<FinePDA>(settings);
}

FourierPDA* PDAFacade::getFourierPDA(int kind, const TaperSettings& settings) {
    switch (kind) {
        case kCepstrum:
            return &CepstrumPDA::getInstance(settings);
        case kMaximumLikelihood:
            return &MaximumLikelihoodPDA::getInstance(settings);
        case kOvertone:
            return &OvertonePDA::getInstance(settings);
        case kSingleMaximum:
            return &SingleMaximumPDA::getInstance(settings);
        case kFine:
            return &FinePDA::getInstance(settings);
        default:
            return nullptr;
    }
}

}  // namespace zt
