// The note tables checked whole: every note of every system against
// 2^(steps/12) worked out here, each step cut out of the table, and the
// tenth-of-a-hertz edges of the cent comparison from both sides.
#include <gtest/gtest.h>

#include <cmath>

#include "dsp/NotationFacade.h"
#include "dsp/Temperament.h"

namespace zt {
namespace {

// Frequency of octave o, step i (C0 = 0) with the base note at `baseSteps` above C0.
double expectedHertz(int o, int i, int baseSteps, double baseHertz) {
    return baseHertz * std::exp2((12 * o + i - baseSteps) / 12.0);
}

TEST(NoteTable, EveryNoteOfSystemsOnSeveralBases) {
    const struct {
        int octave, index;
        double hertz;
    } bases[] = {{4, 9, 440.0}, {4, 9, 442.0}, {4, 9, 1.0}, {0, 11, 30.8677}, {7, 0, 2093.0}};
    for (const auto& base : bases) {
        const auto system =
            NotationFacade::generateNoteSystem(0, Note(base.octave, base.index, base.hertz), 12);
        ASSERT_TRUE(system);
        const auto& notes = system->getListNotes();
        ASSERT_EQ(notes.size(), 96u);
        for (int o = 0; o < 8; ++o) {
            for (int i = 0; i < 12; ++i) {
                const Note& n = notes[size_t(o * 12 + i)];
                const double hertz = expectedHertz(o, i, 12 * base.octave + base.index, base.hertz);
                EXPECT_EQ(n.getOctave(), o);
                EXPECT_EQ(n.getIndex(), i);
                EXPECT_NEAR(n.getFrequency(), hertz, hertz * 1e-12)
                    << "base " << base.hertz << ", note " << o << "/" << i;
            }
        }
    }
    const auto& etalon = NotationFacade::getEtalonNotes().getListNotes();
    for (int n = 0; n < 96; ++n)
        EXPECT_NEAR(etalon[size_t(n)].getFrequency(), expectedHertz(0, n, 57, 440.0), 1e-9) << n;
}

TEST(NoteTable, EachStepCutAcrossAllOctaves) {
    const NoteSystem& etalon = NotationFacade::getEtalonNotes();
    for (int step = 0; step < 12; ++step) {
        const auto cut = etalon.cutNoteByIndex(std::uint16_t(step));
        ASSERT_EQ(cut.size(), 8u) << step;
        for (int o = 0; o < 8; ++o)
            EXPECT_EQ(cut[size_t(o)], etalon.getListNotes()[size_t(o * 12 + step)]) << step;
    }
}

TEST(NoteTable, CentsOnBothSidesOfATenthOfAHertz) {
    // Readings are cut to tenths before comparing: 440.0999 is 440.0, 440.1 is 440.1.
    const double tenth = 1200.0 * std::log2(4401.0 / 4400.0);
    const struct {
        double reference, measured, cents;
    } rows[] = {
        {440.0, 440.0999, 0.0},
        {440.0, 440.1, tenth},
        {440.0999, 440.1, tenth},
        {440.1, 440.0999, -tenth},
        {440.0, 439.9999, -1200.0 * std::log2(4400.0 / 4399.0)},
        {439.95, 440.0, 1200.0 * std::log2(4400.0 / 4399.0)},
    };
    for (const auto& row : rows) {
        EXPECT_NEAR(NotationFacade::centDifference(row.reference, row.measured), row.cents, 1e-9)
            << row.reference << " " << row.measured;
    }
}

}  // namespace
}  // namespace zt
