// saveState.plist as the app loads it: the bytes as the file in the data
// folder, every section read through StateProxy, the metronome's section
// applied to its settings, and one save merged back into the file.

#include "FuzzSupport.h"
#include "metronome/MetronomeSetup.h"
#include "state/StateKeys.h"
#include "state/StateProxy.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    zt::fuzz::useScratchAsDataDir();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (!zt::fuzz::placeDataFile(zt::state::kStateFileName, data, size))
        return 0;

    zt::StateProxy proxy;
    if (auto metronome = proxy.getMetronomeData()) {
        zt::MetronomeSetup setup;
        setup.setSavedData(*metronome);
        (void)setup.currentState();
    }
    (void)proxy.getChromaticTunerData();
    (void)proxy.getBrainTunerData();
    (void)proxy.getChordsLibraryData();
    (void)proxy.getCommonData();
    const int tab = proxy.getSelectedViewController();
    proxy.saveSelectedViewController(tab);
    proxy.saveCommonState({{"Tuning", zt::Value(1)}});
    return 0;
}
