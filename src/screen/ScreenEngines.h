#pragma once
// What the screens play through and time with. Whoever builds the shell
// makes them: the application puts the metronome on the sound card, while
// tests and previews pass recorders and manual clocks, so that building every
// screen needs no sound card. They must outlive the shell.

namespace zt {

class ChordOutput;
class MetronomeOutput;
class StringToneOutput;
class TickClock;

struct ScreenEngines {
    MetronomeOutput& metronome;
    const TickClock& clock;
    // The chords tool's strings.
    ChordOutput& chords;
    // The by-ear tuner's strings.
    StringToneOutput& brain;
};

}  // namespace zt
