#pragma once
// A by-ear tuner output that records what it is asked to play: "play 6 -2
// once", "play 5 0 loop", "play 5 x1.006818 loop", "stop 3".
#include <string>
#include <vector>

#include "tuners/StringToneOutput.h"

namespace zt::test {

class RecordingToneOutput : public StringToneOutput {
public:
    void playString(int stringNumber, int semitones, bool loop) override {
        calls.push_back("play " + std::to_string(stringNumber) + " " + std::to_string(semitones) +
                        (loop ? " loop" : " once"));
    }
    void playStringAt(int stringNumber, double speed, bool loop) override {
        calls.push_back("play " + std::to_string(stringNumber) + " x" + std::to_string(speed) +
                        (loop ? " loop" : " once"));
    }
    void stopString(int stringNumber) override {
        calls.push_back("stop " + std::to_string(stringNumber));
    }
    bool releaseWhenSilent() override { return true; }

    std::vector<std::string> calls;
};

}  // namespace zt::test
