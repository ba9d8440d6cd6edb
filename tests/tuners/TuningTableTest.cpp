// The tunings catalogue checked whole: every row's name, string and compact
// label as published, the pitches of every string worked out from the note
// names alone, and the frequencies the tuner listens for on each string.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "dsp/FakeCapture.h"
#include "framework/Facade.h"
#include "framework/Log.h"
#include "tuners/MainFrequerncyProxy.h"
#include "tunings/TuningCatalogue.h"

using namespace zt;

namespace {

struct Row {
    const char* name;
    const char* notes;
    const char* label;
};

const Row kRows[] = {
    {"Standard", "E2&A2&D3&G3&B3&E4", "EADGBE"},
    {"All Fourths", "E2&A2&D3&G3&C4&F4", "EADGCF"},
    {"Baritone", "B1&E2&A2&D3&F#3&B3", "BEADF#B"},
    {"C#", "C#2&F#2&B2&E3&G#3&C#4", "C#F#BEG#C#"},
    {"C6", "C2&A2&C3&G3&C4&E4", "CACGCE"},
    {"Crossnote A", "E2&A2&E3&A3&C4&E4", "EAEACE"},
    {"Crossnote A (2)", "E2&A2&C3&E3&A3&E4", "EACEAE"},
    {"Crossnote D", "D2&A2&D3&F3&A3&D4", "DADFAD"},
    {"Crossnote E", "E2&B2&E3&G3&B3&E4", "EBEGBE"},
    {"Crossnote F", "F2&G#2&C3&F3&C4&F4", "FG#CFCF"},
    {"Crossnote F (2)", "F2&C3&F3&A3&C4&F4", "FCFACF"},
    {"Crossnote G", "D2&G2&D3&G3&A#3&D4", "DGDGA#D"},
    {"Csus2", "C2&G2&C3&G3&C4&D4", "CGCGCD"},
    {"D modal", "D2&A2&D3&G3&A3&D4", "DADGAD"},
    {"D modal (2)", "D2&A2&D3&A3&D4&D4", "DADADD"},
    {"Double Drop A", "A1&E2&A2&D3&F#3&A3", "AEADF#A"},
    {"Double Drop Bb", "A#1&F2&A#2&D#3&G3&A#3", "A#FA#D#GA#"},
    {"Double Drop B", "B1&F#2&B2&E3&G#3&B3", "BF#BEG#B"},
    {"Double Drop C", "C2&G2&C3&F3&A3&C4", "CGCFAC"},
    {"Double Drop C#", "C#2&G#2&C#3&F#3&A#3&C#4", "C#G#C#F#A#C#"},
    {"Double Drop D", "D2&A2&D3&G3&B3&D4", "DADGBD"},
    {"Drop A", "A1&E2&A2&D3&F#3&B3", "AEADF#B"},
    {"Drop A (2)", "A1&A2&D3&G3&B3&E4", "AADGBE"},
    {"Drop Bb", "A#1&F2&A#2&D#3&G3&C4", "A#FA#D#GC"},
    {"Drop B", "B1&F#2&B2&E3&G#3&C#4", "BF#BEG#C#"},
    {"Drop C", "C2&G2&C3&F3&A3&D4", "CGCFAD"},
    {"Drop C#", "C#2&G#2&C#3&F#3&A#3&D#4", "C#G#C#F#A#D#"},
    {"Drop D", "D2&A2&D3&G3&B3&E4", "DADGBE"},
    {"Dsus2", "D2&A2&D3&E3&A3&D4", "DADEAD"},
    {"E modal", "E2&B2&E3&E3&B3&E4", "EBEEBE"},
    {"Esus2", "E2&A2&E3&F#3&B3&E4", "EAEF#BE"},
    {"Esus4", "E2&A2&E3&A3&B3&E4", "EAEABE"},
    {"Eb (Hendrix)", "D#2&G#2&C#3&F#3&A#3&D#4", "D#G#C#F#A#D#"},
    {"Full Step Down", "D2&G2&C3&F3&A3&D4", "DGCFAD"},
    {"G modal", "G1&G2&D3&G3&B3&D4", "GGDGBD"},
    {"Gambale", "A1&D2&G2&C3&E3&A3", "ADGCEA"},
    {"Gsus2", "D2&G2&D3&G3&A3&D4", "DGDGAD"},
    {"Gsus4", "D2&G2&D3&G3&C4&D4", "DGDGCD"},
    {"Gsus4 (2)", "D2&G2&C3&G3&C4&D4", "DGCGCD"},
    {"Guinnevere", "E2&B2&D3&G3&A3&D4", "EBDGAD"},
    {"New Standart", "C2&G2&D3&A3&E4&G4", "CGDAEG"},
    {"Open A", "E2&A2&C#3&E3&A3&E4", "EAC#EAE"},
    {"Open A (2)", "E2&A2&C#3&E3&A3&C#4", "EAC#EAC#"},
    {"Open A (slide)", "E2&A2&E3&A3&C#4&E4", "EAEAC#E"},
    {"Open C", "C2&G2&C3&G3&C4&E4", "CGCGCE"},
    {"Open C#", "C#2&G#2&C#3&F3&G#3&C#4", "C#G#C#FG#C#"},
    {"Open D", "D2&A2&D3&F#3&A3&D4", "DADF#AD"},
    {"Open Eb", "D#2&A#2&D#3&G3&A#3&D#4", "D#A#D#GA#D#"},
    {"Open E", "E2&B2&E3&G#3&B3&E4", "EBEG#BE"},
    {"Open F", "F2&A2&C3&F3&C4&F4", "FACFCF"},
    {"Open F (2)", "C2&F2&C3&F3&A3&F4", "CFCFAF"},
    {"Open G", "D2&G2&D3&G3&B3&D4", "DGDGBD"},
    {"Open G Minor", "D2&G2&D3&G3&A#3&D4", "DGDGA#D"},
};

// Semitones above C0 of a token such as "F#3", from its letter, sharp and octave.
int pitchOf(const std::string& token) {
    static const int kLetter[] = {9, 11, 0, 2, 4, 5, 7};  // A to G
    const int sharp = token.size() == 3 && token[1] == '#' ? 1 : 0;
    return kLetter[token[0] - 'A'] + sharp + 12 * (token.back() - '0');
}

}  // namespace

TEST(TuningTable, EveryRowAsPublished) {
    ASSERT_EQ(std::size(kRows), tunings::kCount);
    for (std::size_t i = 0; i < tunings::kCount; ++i) {
        const auto& tuning = tunings::catalogue()[i];
        EXPECT_EQ(tuning.name, kRows[i].name) << "row " << i;
        EXPECT_EQ(tuning.notes, kRows[i].notes) << kRows[i].name;
        EXPECT_EQ(tunings::compactLabel(tuning.notes), kRows[i].label) << kRows[i].name;
    }
}

// Strings go up from the sixth to the first, never down and never by more
// than an octave (several tunings double a string at the unison or octave),
// and the sixth string lies between G1 and F2.
TEST(TuningTable, StringsRiseFromTheSixthWithinGuitarRange) {
    for (const auto& tuning : tunings::catalogue()) {
        const auto tokens = tunings::tokens(tuning.notes);
        ASSERT_EQ(tokens.size(), 6u) << tuning.name;
        EXPECT_GE(pitchOf(tokens[0]), pitchOf("G1")) << tuning.name;
        EXPECT_LE(pitchOf(tokens[0]), pitchOf("F2")) << tuning.name;
        for (std::size_t s = 1; s < tokens.size(); ++s) {
            const int step = pitchOf(tokens[s]) - pitchOf(tokens[s - 1]);
            EXPECT_GE(step, 0) << tuning.name << " string " << 6 - s;
            EXPECT_LE(step, 12) << tuning.name << " string " << 6 - s;
        }
    }
}

TEST(TuningTable, TheTunerListensForEveryStringAtItsEqualTemperedPitch) {
    setLogQuiet(true);
    auto proxy = makeProxy<MainFrequerncyProxy>(std::make_shared<zt::testing::FakeCapture>());
    proxy->initVariables({});
    for (const auto& tuning : tunings::catalogue()) {
        const auto tokens = tunings::tokens(tuning.notes);
        const auto notes = proxy->getNotes(tokens);
        ASSERT_EQ(notes.size(), tokens.size()) << tuning.name;
        for (std::size_t s = 0; s < tokens.size(); ++s) {
            const double hertz = 440.0 * std::exp2((pitchOf(tokens[s]) - 57) / 12.0);
            EXPECT_NEAR(notes[s]->standartFrequency, hertz, hertz * 1e-9)
                << tuning.name << " " << tokens[s];
            EXPECT_EQ(notes[s]->fullName, tokens[s].substr(0, tokens[s].size() - 1));
        }
    }
    proxy.reset();
    Facade::reset();
    setLogQuiet(false);
}
