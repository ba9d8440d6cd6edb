#include "dsp/NoteSystem.h"

#include <algorithm>

namespace zt {

namespace {
constexpr int kOctaves = 8;
}

std::vector<Note> NoteSystem::cutNoteByIndex(std::uint16_t index) const {
    std::vector<Note> notes;
    for (int octave = 0; octave < kOctaves; ++octave) {
        const std::size_t position = static_cast<std::size_t>(octave) * tones_ + index;
        if (position < listNotes_.size())
            notes.push_back(listNotes_[position]);
    }
    return notes;
}

std::vector<Note> NoteSystem::cutFragmentListNotes(const Note& from, const Note& to) const {
    const auto count =
        static_cast<std::uint16_t>((to.getOctave() * tones_ + to.getIndex()) -
                                   (from.getOctave() * tones_ + from.getIndex()) + 1);
    const auto taken = std::min<std::size_t>(count, listNotes_.size());
    return {listNotes_.begin(), listNotes_.begin() + static_cast<std::ptrdiff_t>(taken)};
}

}  // namespace zt
