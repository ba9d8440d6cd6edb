#pragma once
// A chords output that records what it is asked to play: a whole chord as
// its strings' note indexes from the 6th to the 1st, x for muted (in
// standard tuning they are the frets): "chord x 0 2 2 1 0 after 0.25"; one
// string as "string 5 index 0". It is heard as a player would be, on a
// clock the test moves (`now`, seconds): each note from its start in the
// schedule the player would run.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>
#include <utility>
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
        const StrumSchedule schedule = wholeChord(notes, kRate, std::llround(delaySeconds * kRate));
        for (int i = 0; i < schedule.count; ++i) {
            const StrumNote& note = schedule.notes[static_cast<std::size_t>(i)];
            starts.push_back({note.string, now + static_cast<double>(note.offset) / kRate});
        }
    }
    void playString(const StringNotes& notes, int stringNumber) override {
        const auto s = static_cast<std::size_t>(stringNumber - 1);
        calls.push_back("string " + std::to_string(stringNumber) + " index " +
                        std::to_string(notes.indexesOfNotes[s]));
        if (notes.canPlay[s])
            starts.push_back({stringNumber, now});
    }
    void stop() override {
        calls.push_back("stop");
        starts.clear();
    }
    bool releaseWhenSilent() override {
        ++releases;
        return silent;
    }

    HeardStrings heard() const override {
        HeardStrings heard;
        for (const auto& [string, at] : starts) {
            if (at > now) {
                heard.waiting = true;
                continue;
            }
            auto& ago = heard.secondsAgo[static_cast<std::size_t>(string - 1)];
            ago = std::min(ago, now - at);
        }
        return heard;
    }

    static constexpr int kRate = 48000;
    std::vector<std::string> calls;
    // Seconds on the output's clock.
    double now = 0.0;
    // Every note asked for: its string and when it starts.
    std::vector<std::pair<int, double>> starts;
    int releases = 0;
    // What releaseWhenSilent answers.
    bool silent = true;
};

}  // namespace zt::test
