// The equal-tempered note table and cent arithmetic.
#include <gtest/gtest.h>

#include <cmath>

#include "dsp/NotationFacade.h"
#include "dsp/Temperament.h"

namespace zt {
namespace {

TEST(NoteSystem, EqualTemperamentOnA440) {
    const NoteSystem& etalon = NotationFacade::getEtalonNotes();
    ASSERT_EQ(etalon.getListNotes().size(), 96u);
    const struct {
        int octave, index;
        double hertz;
    } rows[] = {
        {0, 0, 16.3516},   // C0
        {2, 4, 82.4069},   // E2
        {4, 9, 440.0},     // A4, the base itself
        {7, 11, 3951.07},  // B7
    };
    for (const auto& row : rows) {
        const Note& note = etalon.getListNotes()[row.octave * 12 + row.index];
        EXPECT_EQ(note.getOctave(), row.octave);
        EXPECT_EQ(note.getIndex(), row.index);
        EXPECT_NEAR(note.getFrequency(), row.hertz, 0.005) << row.octave << " " << row.index;
    }
    EXPECT_EQ(etalon.getListNotes()[4 * 12 + 9].getFrequency(), 440.0);
}

TEST(NoteSystem, BasesAnywhereAndTheSharedTableStaysOnA440) {
    // A calibrated A4 moves every note by the same ratio; a base in octave 0
    // above the generated steps works through signed exponents.
    const auto calibrated = NotationFacade::generateNoteSystem(0, Note(4, 9, 442.0), 12);
    ASSERT_TRUE(calibrated);
    EXPECT_NEAR(calibrated->getListNotes()[2 * 12 + 4].getFrequency(), 82.4069 * 442.0 / 440.0,
                1e-3);
    const auto low = NotationFacade::generateNoteSystem(0, Note(0, 11, 30.8677), 12);
    ASSERT_TRUE(low);
    EXPECT_NEAR(low->getListNotes()[0].getFrequency(), 16.3516, 1e-3);
    EXPECT_NEAR(low->getListNotes()[4 * 12 + 9].getFrequency(), 440.0, 1e-2);

    EXPECT_EQ(NotationFacade::getEtalonNotes().getListNotes()[4 * 12 + 9].getFrequency(), 440.0);
    EXPECT_FALSE(NotationFacade::generateNoteSystem(1, NotationFacade::getBaseNote(), 12));
    EXPECT_EQ(NotationFacade::getBaseNote(), Note(4, 9, 440.0));
}

TEST(NoteSystem, CuttingOneStepAndTheFragmentFromTheStart) {
    const NoteSystem& etalon = NotationFacade::getEtalonNotes();
    const auto b = etalon.cutNoteByIndex(11);
    ASSERT_EQ(b.size(), 8u);
    for (int octave = 0; octave < 8; ++octave) {
        EXPECT_EQ(b[octave].getOctave(), octave);
        EXPECT_EQ(b[octave].getIndex(), 11);
    }
    // From E2 to G2 counts four notes, taken from the start of the list.
    const auto fragment = etalon.cutFragmentListNotes(Note(2, 4), Note(2, 7));
    ASSERT_EQ(fragment.size(), 4u);
    EXPECT_EQ(fragment.front(), etalon.getListNotes()[0]);
    EXPECT_EQ(fragment.back().getIndex(), 3);
}

TEST(NoteSystem, CentsCompareFrequenciesTruncatedToTenths) {
    const struct {
        double reference, measured, cents;
    } rows[] = {
        {440.0, 440.0, 0.0},     {440.0, 440.09, 0.0},  // the 0.09 is truncated away
        {440.0, 445.0, 19.5622}, {440.0, 435.0, -19.7857},
        {440.0, 880.0, 1200.0},  {82.4069, 82.4, 0.0},  // both read as 82.4
        {82.4069, 82.5, 2.0997},
    };
    for (const auto& row : rows) {
        EXPECT_NEAR(NotationFacade::centDifference(row.reference, row.measured), row.cents, 1e-4)
            << row.reference << " " << row.measured;
    }
    EXPECT_TRUE(std::isinf(NotationFacade::centDifference(0.05, 440.0)));
}

}  // namespace
}  // namespace zt
