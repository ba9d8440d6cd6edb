#pragma once
// A chords output that records what it is asked to play: a whole chord as
// its strings' note indexes from the 6th to the 1st, x for muted (in
// standard tuning they are the frets): "chord x 0 2 2 1 0 after 0.25"; one
// string as "string 5 index 0".
#include <cstdio>
#include <string>
#include <vector>

#include "chords/ChordOutput.h"

namespace zt::test {

class RecordingChordOutput : public ChordOutput {
public:
    void playChord(const StringNotes& notes, double delaySeconds) override {
        std::string call = "chord";
        for (int n = kStringCount; n >= 1; --n) {
            const auto s = static_cast<std::size_t>(n - 1);
            call += notes.canPlay[s] ? " " + std::to_string(notes.indexesOfNotes[s]) : " x";
        }
        char delay[32];
        std::snprintf(delay, sizeof delay, " after %.2f", delaySeconds);
        calls.push_back(call + delay);
    }
    void playString(const StringNotes& notes, int stringNumber) override {
        const auto s = static_cast<std::size_t>(stringNumber - 1);
        calls.push_back("string " + std::to_string(stringNumber) + " index " +
                        std::to_string(notes.indexesOfNotes[s]));
    }
    void stop() override { calls.push_back("stop"); }
    bool releaseWhenSilent() override {
        ++releases;
        return silent;
    }

    std::vector<std::string> calls;
    int releases = 0;
    // What releaseWhenSilent answers.
    bool silent = true;
};

}  // namespace zt::test
