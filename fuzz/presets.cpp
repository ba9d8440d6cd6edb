// presetsList.plist as the metronome loads it: the bytes as the file in the
// data folder, loaded by MetronomeProxy, then every preset looked up by
// index, name and state code and applied to the metronome's settings.

#include "FuzzSupport.h"
#include "metronome/MetronomeProxy.h"
#include "metronome/MetronomeSetup.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    zt::fuzz::useScratchAsDataDir();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (!zt::fuzz::placeDataFile("presetsList.plist", data, size))
        return 0;

    zt::MetronomeProxy proxy;
    proxy.loadPresetsArray();
    const int count = static_cast<int>(proxy.presetsArray().size());
    for (int index = -1; index <= count; ++index) {
        zt::MetronomeSetup setup;
        setup.setSavedData(proxy.presetAtIndex(index));
        const std::string state = setup.currentState();
        const std::string name = proxy.presetNameForIndex(index);
        (void)proxy.containPresetWithName(name);
        (void)proxy.presetIndexForState(state);
        (void)setup.normalized();
    }
    if (count > 1)
        proxy.removePresetWithIndex(1);
    proxy.saveCurrentState(zt::MetronomeSetup{}.currentSettings());
    return 0;
}
