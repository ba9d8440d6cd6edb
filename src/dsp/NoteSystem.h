#pragma once
// An ordered list of notes covering octaves 0 to 7: the note of octave o and
// step i stands at position o * tones + i, so twelve tones give 96 notes.

#include <cstdint>
#include <vector>

#include "dsp/Note.h"

namespace zt {

class NoteSystem {
public:
    NoteSystem(std::vector<Note> listNotes, std::uint16_t tones)
        : listNotes_(std::move(listNotes)), tones_(tones) {}

    const std::vector<Note>& getListNotes() const { return listNotes_; }
    std::uint16_t getTones() const { return tones_; }

    // The notes of one step, one per octave, lowest octave first (B0 ... B7
    // for step 11 of twelve tones).
    std::vector<Note> cutNoteByIndex(std::uint16_t index) const;

    // As many notes as lie from `from` to `to` inclusive (counted in 16 bits),
    // but taken from the start of the list, not from `from`: C0 ... D#0 for E2
    // to G2. No caller relies on it; it is kept as the system has always had it.
    std::vector<Note> cutFragmentListNotes(const Note& from, const Note& to) const;

private:
    std::vector<Note> listNotes_;
    std::uint16_t tones_;
};

}  // namespace zt
