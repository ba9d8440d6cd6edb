// zebtools-cli chords: the diagrams and JSON of a chord, bad names and
// tunings, chords without a shape, the walk, and the strum written to a file.
#include <gtest/gtest.h>
#include <sndfile.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <sstream>

#include "ChordTesting.h"
#include "chords/StringSet.h"
#include "cli/Cli.h"
#include "cli/CliCommand.h"
#include "sound/SoundBank.h"

namespace zt::cli {
namespace {

struct Outcome {
    int code;
    std::string out, err;
};

Outcome chords(std::vector<std::string> args) {
    args.insert(args.begin(), "chords");
    std::ostringstream out, err;
    const int code = runCli(args, out, err);
    return {code, out.str(), err.str()};
}

TEST(ChordsCommand, BadArgumentsExplainAndExitWithTwo) {
    const std::vector<std::pair<std::vector<std::string>, std::vector<const char*>>> rows = {
        {{"Cxyz"}, {"\"Cxyz\" is not a chord", "maj7", "m/maj7", "add9", "Bb"}},
        {{"H"}, {"is not a chord"}},
        {{"C", "--tuning", "Foo"}, {"\"Foo\" is not a tuning", "0   Standard", "52  Open G Minor"}},
        {{"C", "--tuning", "53"}, {"\"53\" is not a tuning"}},
        {{"C", "--limit", "0"}, {"--limit"}},
        {{}, {"give one of NAME, --all or --play NAME"}},
        {{"C", "--all"}, {"give one of"}},
        {{"C", "--play", "D", "--out", "x.wav"}, {"give one of"}},
        {{"--play", "C"}, {"--play needs --out FILE"}},
        {{"--play", "Cxyz", "--out", "x.wav"}, {"is not a chord"}},
        {{"C", "--out", "x.wav"}, {"--out and --variation go with --play"}},
        {{"--play", "C", "--variation", "99", "--out", "x.wav"},
         {"--variation 99 is past the last"}},
    };
    for (const auto& [args, says] : rows) {
        const Outcome run = chords(args);
        EXPECT_EQ(run.code, kExitUsage) << args.size();
        for (const char* text : says)
            EXPECT_NE(run.err.find(text), std::string::npos) << text << " in\n" << run.err;
    }
    EXPECT_FALSE(std::filesystem::exists("x.wav"));
}

TEST(ChordsCommand, DiagramsShowFretsFingersBarresMutedAndOpenStrings) {
    const Outcome c = chords({"C", "--limit", "1"});
    ASSERT_EQ(c.code, kExitOk) << c.err;
    EXPECT_EQ(c.out,
              "C (C E G) in Standard (E2 A2 D3 G3 B3 E4): 20 fingerings, showing 1\n"
              "\n"
              "bass C\n"
              "\n"
              "#1  x 3 2 0 1 0\n"
              "       x     o   o\n"
              "    1  | | | | 1 |\n"
              "    2  | | 2 | | |\n"
              "    3  | 3 | | | |\n"
              "    4  | | | | | |\n");

    // Flats are read as the sharp below; the tuning by its number.
    const Outcome f = chords({"Gbm", "--tuning", "0", "--limit", "1"});
    ASSERT_EQ(f.code, kExitOk) << f.err;
    EXPECT_NE(f.out.find("F#m (F# A C#) in Standard"), std::string::npos) << f.out;
    EXPECT_NE(f.out.find("#1  2 4 4 2 2 2\n"
                         "\n"
                         "    2  1-----1-1-1\n"
                         "    3  | | | | | |\n"
                         "    4  | 3 4 | | |\n"
                         "    5  | | | | | |\n"
                         "    barre: finger 1 at fret 2, strings 6 to 1\n"),
              std::string::npos)
        << f.out;
}

TEST(ChordsCommand, JsonHoldsEachFingeringStringByStringFromTheSixth) {
    const Outcome am = chords({"Am", "--json", "--limit", "1"});
    ASSERT_EQ(am.code, kExitOk) << am.err;
    const auto doc = nlohmann::json::parse(am.out);
    EXPECT_EQ(doc["chord"], "Am");
    EXPECT_EQ(doc["tuning"], "Standard");
    ASSERT_EQ(doc["variations"].size(), 1u);
    const auto& v = doc["variations"][0];
    EXPECT_EQ(v["frets"], nlohmann::json({-1, 0, 2, 2, 1, 0}));
    EXPECT_EQ(v["fingers"], nlohmann::json({-1, 0, 2, 3, 1, 0}));
    EXPECT_EQ(v["pitches"], nlohmann::json({-1, 45, 52, 57, 60, 64}));
    EXPECT_EQ(v["bass"], "A");
    EXPECT_EQ(v["barres"], nlohmann::json::array());

    const auto f = nlohmann::json::parse(chords({"F", "--json"}).out);
    bool barreF = false;
    for (const auto& shape : f["variations"]) {
        if (shape["frets"] == nlohmann::json({1, 3, 3, 2, 1, 1})) {
            barreF = true;
            EXPECT_EQ(shape["barres"],
                      nlohmann::json::parse(R"([{"fret":1,"finger":1,"from":6,"to":1}])"));
            EXPECT_EQ(shape["fingers"], nlohmann::json({1, 3, 4, 2, 1, 1}));
        }
    }
    EXPECT_TRUE(barreF);

    const auto dropD = nlohmann::json::parse(chords({"D", "--tuning", "drop d", "--json"}).out);
    EXPECT_EQ(dropD["tuning"], "Drop D");
    EXPECT_EQ(dropD["variations"][0]["pitches"][0], 38) << "D2 on the open 6th string";
}

TEST(ChordsCommand, AChordWithoutAFingeringSaysSoAndSucceeds) {
    const Outcome text = chords({"Ddim7", "--tuning", "Csus2"});
    EXPECT_EQ(text.code, kExitOk);
    EXPECT_EQ(text.out, "Ddim7 (D F G# B) in Csus2 (C2 G2 C3 G3 C4 D4): no fingering exists.\n");
    const Outcome json = chords({"Ddim7", "--tuning", "Csus2", "--json"});
    EXPECT_EQ(nlohmann::json::parse(json.out)["variations"], nlohmann::json::array());
    // A run that failed earlier (or another checkout's) may have left one behind.
    const auto path = testing::TempDir() + "zt_chords_none.wav";
    std::filesystem::remove(path);
    const Outcome play = chords({"--play", "Ddim7", "--tuning", "Csus2", "--out", path});
    EXPECT_EQ(play.code, kExitOk);
    EXPECT_NE(play.out.find("no fingering"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(ChordsCommand, TheWalkCountsEveryChordOfATuning) {
    const Outcome run = chords({"--all", "--tuning", "D modal (2)", "--json"});
    ASSERT_EQ(run.code, kExitOk) << run.err;
    const auto doc = nlohmann::json::parse(run.out);
    EXPECT_EQ(doc["chords"], 288);
    EXPECT_EQ(doc["none"].size(), 40u);
    EXPECT_EQ(doc["counts"]["D modal (2)"].size(), 288u);
    EXPECT_EQ(doc["counts"]["D modal (2)"]["Csus2"], 29);

    const Outcome text = chords({"--all", "--tuning", "Standard"});
    EXPECT_NE(text.out.find("Standard\tC\t20\n"), std::string::npos);
    EXPECT_NE(text.out.find("288 chords in 1 tuning: "), std::string::npos) << text.out;
}

// The file holds what the strum engine renders from the shipped string
// recordings, sample for sample (to 16-bit rounding).
TEST(ChordsCommand, PlayWritesTheStrumTheAppPlays) {
    for (int string = 0; string < 6; ++string) {
        if (!std::filesystem::exists(SoundBank::path(SoundBank::fileName(string + 1))))
            GTEST_SKIP() << "string recordings not found";
    }
    const auto path = testing::TempDir() + "zt_chords_play.wav";
    const Outcome run = chords({"--play", "D", "--tuning", "Drop D", "--out", path});
    ASSERT_EQ(run.code, kExitOk) << run.err;
    EXPECT_NE(run.out.find("6 strings 60 ms apart"), std::string::npos) << run.out;

    SF_INFO info{};
    SNDFILE* file = sf_open(path.c_str(), SFM_READ, &info);
    ASSERT_NE(file, nullptr);
    std::vector<float> written(static_cast<std::size_t>(info.frames));
    sf_readf_float(file, written.data(), info.frames);
    sf_close(file);
    std::filesystem::remove(path);
    EXPECT_EQ(info.samplerate, 44100);
    EXPECT_EQ(info.channels, 1);

    StringSet strings;
    std::string error;
    ASSERT_TRUE(strings.load(44100, error)) << error;
    ChordLibrary library;
    test::useTuning(library, "Drop D");
    VariationSet set = library.getVariations("D", "");
    sortVariations(set);
    StrumEngine engine(44100, strings.recordings());
    const StrumSchedule schedule = wholeChord(stringNotes(set.records[0]), 44100);
    engine.play(schedule);
    ASSERT_EQ(info.frames, engine.length(schedule));
    std::vector<float> expected(written.size());
    engine.render(expected.data(), static_cast<int>(expected.size()), 0);
    double worst = 0.0;
    for (std::size_t i = 0; i < written.size(); ++i)
        worst = std::max(worst, double(std::abs(written[i] - expected[i])));
    EXPECT_LT(worst, 1.0 / 32768 + 1e-6);
}

}  // namespace
}  // namespace zt::cli
