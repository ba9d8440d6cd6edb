#pragma once
// A metronome output that records what it is asked, and hands out beats a
// test has queued as heard.
#include <deque>
#include <string>
#include <vector>

#include "metronome/MetronomeOutput.h"
#include "metronome/MetronomeSetup.h"

namespace zt::test {

class RecordingOutput : public MetronomeOutput {
public:
    void start(const MetronomeSetup& setup) override {
        calls.push_back("start " + setup.currentState());
    }
    void stop() override { calls.push_back("stop"); }
    void setCurrentPack(int pack) override { calls.push_back("pack " + std::to_string(pack)); }
    void setIsFirstBeatNeed(bool need) override { calls.push_back(need ? "accent 1" : "accent 0"); }
    std::optional<HeardBeat> takeHeardBeat() override {
        if (heard.empty())
            return std::nullopt;
        const HeardBeat beat = heard.front();
        heard.pop_front();
        return beat;
    }

    std::vector<std::string> calls;
    std::deque<HeardBeat> heard;
};

}  // namespace zt::test
