#include "tuners/ui/NotePanel.h"

#include "tunings/TuningCatalogue.h"

namespace zt {

namespace {

constexpr std::array<const char*, 12> kTuning0{"C",  "C#", "D",  "D#", "E",  "F",
                                               "F#", "G",  "G#", "A",  "A#", "B"};

const std::string& pitchClass(int index) {
    static const std::array<std::string, 12> names = [] {
        std::array<std::string, 12> out;
        for (std::size_t i = 0; i < out.size(); ++i)
            out[i] = kTuning0[i];
        return out;
    }();
    return names[static_cast<std::size_t>(((index % 12) + 12) % 12)];
}

}  // namespace

NotePanel::NotePanel() {
    reset(0, true);
}

void NotePanel::setTuningArray(const std::vector<std::string>& notesStand) {
    tuningArray_.clear();
    for (const std::string& notes : notesStand) {
        std::array<std::string, kSlots> names;
        const std::vector<std::string> tokens = tunings::tokens(notes);
        for (std::size_t i = 0; i < names.size() && i < tokens.size(); ++i)
            names[i] = tokens[i].substr(0, tokens[i].empty() ? 0 : tokens[i].size() - 1);
        tuningArray_.push_back(names);
    }
}

const std::array<std::string, NotePanel::kSlots>& NotePanel::strings(int tuning) const {
    static const std::array<std::string, kSlots> none;
    if (tuning < 0 || tuning >= tuningCount())
        return tuningArray_.empty() ? none : tuningArray_.front();
    return tuningArray_[static_cast<std::size_t>(tuning)];
}

void NotePanel::setSlot(int slot, const std::string& name) {
    letters_[static_cast<std::size_t>(slot)] = name.substr(0, 1);
    sharps_[static_cast<std::size_t>(slot)] = name.size() == 2;
}

void NotePanel::reset(int tuning, bool allNotes) {
    for (int slot = 0; slot < kSlots; ++slot)
        setSlot(slot,
                allNotes ? pitchClass(slot) : strings(tuning)[static_cast<std::size_t>(slot)]);
    activeSlot_ = -1;
}

void NotePanel::showString(int tuning, int slot, const std::string& note, bool lit) {
    reset(tuning, false);
    if (lit && slot >= 0 && slot < kSlots) {
        activeSlot_ = slot;
        letters_[static_cast<std::size_t>(slot)] = note.substr(0, 1);
    }
}

void NotePanel::slideTo(int index) {
    if (index >= beginIndex_ && index <= beginIndex_ + kSlots - 1)
        return;
    // One step at a time, so that the window slides rather than jumps.
    while (!(beginIndex_ < index && index <= beginIndex_ + 4))
        beginIndex_ += index > beginIndex_ + 3 ? 1 : -1;
}

void NotePanel::showWindow(int index, bool lit) {
    for (int slot = 0; slot < kSlots; ++slot)
        setSlot(slot, pitchClass(beginIndex_ + 12 + slot));
    const int slot = index - beginIndex_;
    activeSlot_ = lit && slot >= 0 && slot < kSlots ? slot : -1;
    if (activeSlot_ >= 0)
        letters_[static_cast<std::size_t>(slot)] = pitchClass(index).substr(0, 1);
}

}  // namespace zt
