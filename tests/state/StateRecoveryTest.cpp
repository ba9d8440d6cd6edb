// A damaged state file is kept aside and replaced by the defaults; what the
// user saves afterwards must land in the new file, and a later damage must
// not overwrite the copy kept the first time.
#include "state/StateKeys.h"
#include "state/StateProxy.h"
#include "state/StateTestSupport.h"

using namespace zt;

namespace {

class StateRecoveryTest : public test::DataDirTest {};

}  // namespace

TEST_F(StateRecoveryTest, SavesAfterARepairAreKeptAndEveryDamagedCopySurvives) {
    const struct {
        const char* damaged;
        void (StateProxy::*save)(const Dictionary&);
        const char* section;
        Dictionary changes;
        const char* keptAs;
    } steps[] = {
        {"garbage",
         &StateProxy::saveMetromoneState,
         "MetronomeSettings",
         {{"BPM", 120}},
         "saveState.plist.corrupt"},
        {"<plist version=\"1.0\"><array/></plist>",
         &StateProxy::saveCommonState,
         "CommonSettings",
         {{"Tuning", 5}},
         "saveState.plist.corrupt.1"},
    };
    for (const auto& step : steps) {
        // The file is damaged between sessions; the state is read once per
        // session, so the save is the new session's first access.
        writeBytes(statePath(), step.damaged);
        auto proxy = makeProxy<StateProxy>();
        (proxy.get()->*step.save)(step.changes);

        Dictionary expected = state::defaultSavedState();
        for (const auto& [key, value] : step.changes)
            expected[step.section].dictionary()[key] = value;
        EXPECT_EQ(readDictionary(statePath()), expected) << step.damaged;
        EXPECT_EQ(readBytes(dataDir_ / step.keptAs), step.damaged);
    }
    EXPECT_EQ(readBytes(dataDir_ / "saveState.plist.corrupt"), "garbage");
}

TEST_F(StateRecoveryTest, AChangeWithoutAValueLeavesItsKeyAlone) {
    auto proxy = makeProxy<StateProxy>();
    proxy->saveMetromoneState({{"BPM", 120}, {"packNumber", Value()}, {"extra", Value()}});
    Dictionary expected = state::defaultSavedState();
    expected["MetronomeSettings"].dictionary()["BPM"] = 120;
    EXPECT_EQ(readDictionary(statePath()), expected);
}
