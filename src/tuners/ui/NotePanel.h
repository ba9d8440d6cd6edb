#pragma once
// The chromatic tuner's six-slot note panel: each slot a letter with an
// optional sharp sign, one slot lit for the note heard. It shows either the
// six strings of the current tuning or a window of six of the twelve pitch
// classes that slides, one step at a time, to keep the note heard in slots 1
// to 4. Pitch classes are 0 = C to 11 = B; the window may start below C
// (beginIndex -1 shows B, C, C#, D, D#, E).

#include <array>
#include <string>
#include <vector>

namespace zt {

class NotePanel {
public:
    static constexpr int kSlots = 6;

    NotePanel();

    // Each tuning's six pitch names (octave digits dropped), from the
    // catalogue's "&"-joined strings, lowest string first.
    void setTuningArray(const std::vector<std::string>& notesStand);
    int tuningCount() const { return static_cast<int>(tuningArray_.size()); }
    const std::vector<std::array<std::string, kSlots>>& tuningArray() const { return tuningArray_; }

    // Nothing lit: the strings of `tuning`, or C to F with all notes.
    void reset(int tuning, bool allNotes);
    // Tuning mode: the strings of `tuning`, with slot `slot` lit showing the
    // first letter of `note` when `lit`.
    void showString(int tuning, int slot, const std::string& note, bool lit);
    // All-notes mode: moves the window until pitch class `index` is in
    // slots 1 to 4, if it is not on show; then draws the window, with
    // `index` lit when `lit`.
    void slideTo(int index);
    void showWindow(int index, bool lit);
    int beginIndex() const { return beginIndex_; }
    void setBeginIndex(int begin) { beginIndex_ = begin; }

    const std::array<std::string, kSlots>& letters() const { return letters_; }
    const std::array<bool, kSlots>& sharps() const { return sharps_; }
    // The lit slot, or -1.
    int activeSlot() const { return activeSlot_; }

private:
    void setSlot(int slot, const std::string& name);
    const std::array<std::string, kSlots>& strings(int tuning) const;

    std::vector<std::array<std::string, kSlots>> tuningArray_;
    std::array<std::string, kSlots> letters_;
    std::array<bool, kSlots> sharps_{};
    int activeSlot_ = -1;
    int beginIndex_ = 0;
};

}  // namespace zt
