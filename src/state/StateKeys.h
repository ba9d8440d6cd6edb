#pragma once
// Every key of the saved state ("saveState.plist") with its default and, for
// numbers, its valid range (inclusive). The default file among the resources
// holds exactly defaultSavedState(); a test keeps the two in step. Tools read
// their saved values through read(), which falls back to the default for a
// missing, malformed or out-of-range value.

#include <limits>
#include <string>

#include "framework/Value.h"

namespace zt::state {

struct IntKey {
    const char* name;
    int fallback;
    int min;
    int max;
};
struct RealKey {
    const char* name;
    double fallback;
    double min;
    double max;
};
struct BoolKey {
    const char* name;
    bool fallback;
};
struct TextKey {
    const char* name;
    const char* fallback;
};

inline constexpr const char* kStateFileName = "saveState.plist";

// Index of the tab chosen last (metronome, chromatic tuner, by-ear tuner, chords).
inline constexpr IntKey kSelectedViewController{"SelectedViewController", 0, 0, 3};

namespace metronome {
inline constexpr const char* kSection = "MetronomeSettings";
inline constexpr IntKey kPackNumber{"packNumber", 1, 1, 5};
inline constexpr IntKey kTimeSig1Value{"timeSig1Value", 2, 1, 16};
inline constexpr IntKey kTimeSig2Value{"timeSig2Value", 4, 4, 8};
inline constexpr IntKey kNotesPerBeat{"notesPerBeat", 1, 1, 6};
inline constexpr BoolKey kIsFirstBeatNeed{"isFirstBeatNeed", true};
inline constexpr BoolKey kIsTempoX2{"isTempoX2", false};
// Row of the tempo wheel, tempo - 20 beats per minute (20 to 240).
inline constexpr IntKey kBPM{"BPM", 60, 0, 220};
}  // namespace metronome

namespace chromatic {
inline constexpr const char* kSection = "ChromaticSettings";
inline constexpr BoolKey kAllNotes{"AllNotes", false};
// Tapering window, 0 to 4.
inline constexpr IntKey kTaper{"Taper", 0, 0, 4};
// Base note (concert pitch): octave, note index 0 (C) to 11 (B), frequency in Hz.
// A frequency below 1.0 means "no calibration": A4 at 440 Hz.
inline constexpr IntKey kBaseOctave{"baseOctave", 4, 0, 9};
inline constexpr IntKey kBaseIndex{"baseIndex", 9, 0, 11};
inline constexpr RealKey kBaseFrequency{"baseFrequency", 440.0, 1.0,
                                        std::numeric_limits<double>::max()};
inline constexpr BoolKey kLinearScale{"LinearScale", false};
// Microphone threshold, percent.
inline constexpr IntKey kTreshold{"Treshold", 10, 0, 100};
// Our own keys, absent from older files: the overtone detector instead of the
// fine one, and the capture device by name (empty: the system's default).
inline constexpr BoolKey kClassicDetection{"ClassicDetection", false};
inline constexpr TextKey kInputDevice{"InputDevice", ""};
// Also our own: the strobe band in place of the needle, and the pitch
// history on the tuner. Off unless chosen.
inline constexpr BoolKey kStrobeView{"StrobeView", false};
inline constexpr BoolKey kPitchHistory{"PitchHistory", false};
}  // namespace chromatic

namespace brain {
inline constexpr const char* kSection = "BrainSettings";
inline constexpr BoolKey kLoop{"Loop", false};
// Our own key, absent from older files: the fret a capo sits on, 0 for none;
// the strings play as they sound with it.
inline constexpr IntKey kCapo{"Capo", 0, 0, 12};
}  // namespace brain

// The chords screen stores its numbers as decimal strings.
namespace chords {
inline constexpr const char* kSection = "ChordsSettings";
inline constexpr TextKey kChordName{"ChordName", "C"};
inline constexpr TextKey kCurrentVariationsIndex{"currentVariationsIndex", "0"};
inline constexpr TextKey kCanPlayString[6] = {{"canPlayString1", "1"}, {"canPlayString2", "1"},
                                              {"canPlayString3", "1"}, {"canPlayString4", "1"},
                                              {"canPlayString5", "1"}, {"canPlayString6", "1"}};
inline constexpr TextKey kLockedString[6] = {{"lockedString1", "0"}, {"lockedString2", "0"},
                                             {"lockedString3", "0"}, {"lockedString4", "0"},
                                             {"lockedString5", "0"}, {"lockedString6", "0"}};
inline constexpr TextKey kChordPart1{"chordPart1", "C"};
inline constexpr TextKey kChordPart2{"chordPart2", ""};
inline constexpr BoolKey kNotes{"notes", false};
inline constexpr TextKey kPickerComponent0Row{"pickerComponent0Row", "0"};
inline constexpr TextKey kPickerComponent1Row{"pickerComponent1Row", "0"};
// Our own key, absent from older files and a number: the fret a capo sits
// on, 0 for none; fingerings are shown from it.
inline constexpr IntKey kCapo{"Capo", 0, 0, 12};
}  // namespace chords

namespace common {
inline constexpr const char* kSection = "CommonSettings";
// Index into the tunings catalogue (53 tunings).
inline constexpr IntKey kTuning{"Tuning", 0, 0, 52};
// Our own key, absent from older files: the name of the user's tuning in use
// ("Tuning" is then 0), or empty for one of the catalogue's.
inline constexpr TextKey kCustomTuning{"CustomTuning", ""};
// Also our own: the tools drawn for a left-handed player, the low string on
// the right. Off unless chosen.
inline constexpr BoolKey kLeftHanded{"LeftHanded", false};
}  // namespace common

// The saved value under key, or its default when the value is missing, of
// the wrong kind or out of range (the last two with a log line).
int read(const Dictionary& section, const IntKey& key);
double read(const Dictionary& section, const RealKey& key);
bool read(const Dictionary& section, const BoolKey& key);
std::string read(const Dictionary& section, const TextKey& key);

// Restores what the tools cannot do without: each of the five sections that
// is missing or not a dictionary becomes its default section, each key
// missing from a section gets its default, and "SelectedViewController" its
// default when it is not a number. Everything else is kept. True when
// something was restored (with a warning).
bool repairSections(Dictionary& root);

// The whole saved state as first installed: all five sections with every key
// at its default, and "SelectedViewController".
Dictionary defaultSavedState();

}  // namespace zt::state
