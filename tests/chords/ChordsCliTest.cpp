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
#include "state/AtomicFile.h"

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
        {{"C", "--out", "x.wav"}, {"--out goes with --play"}},
        {{"C", "--variation", "2"}, {"--variation goes with --play or --svg"}},
        {{"--all", "--svg", "x.svg"}, {"--svg goes with NAME"}},
        {{"C", "--svg", "x.svg", "--variation", "21"}, {"C has 20 fingerings in Standard"}},
        {{"identify", "x3201"}, {"\"x3201\" has 5 strings", "from the 6th string"}},
        {{"identify", "x 3 2 0 1 0 0"}, {"has 7 strings"}},
        {{"identify", "x3201q"}, {"\"q\" is not a fret"}},
        {{"identify", "x,3,25,0,1,0"}, {"fret 25 is past the 24th"}},
        {{"identify", "x32010", "--tuning", "E2 A2 D3"}, {"is not a tuning", "or six notes"}},
        {{"identify"}, {"FRETS is required"}},
        {{"identify", "x 3 22 x x x", "--capo", "3"},
         {"fret 22 from a capo at the 3rd fret is past the 24th"}},
        {{"identify", "x32010", "--capo", "13"}, {"--capo"}},
        {{"--play", "C", "--variation", "99", "--out", "x.wav"},
         {"--variation 99 is past the last"}},
        {{"C", "--capo", "13"}, {"--capo"}},
        {{"--all", "--capo", "2"}, {"--capo goes with NAME or --play"}},
    };
    for (const auto& [args, says] : rows) {
        const Outcome run = chords(args);
        EXPECT_EQ(run.code, kExitUsage) << args.size();
        for (const char* text : says)
            EXPECT_NE(run.err.find(text), std::string::npos) << text << " in\n" << run.err;
    }
    EXPECT_FALSE(std::filesystem::exists("x.wav"));
    EXPECT_FALSE(std::filesystem::exists("x.svg"));
}

TEST(ChordsCommand, IdentifyNamesAShapeBestFirstWithNotesAndFormula) {
    const Outcome c = chords({"identify", "x32010"});
    ASSERT_EQ(c.code, kExitOk) << c.err;
    EXPECT_EQ(c.out,
              "x 3 2 0 1 0 in Standard (E2 A2 D3 G3 B3 E4): C E G C E, C in the bass\n"
              "1. C  C E G  (1 3 5)\n");
    const Outcome c6 = chords({"identify", "x 3 2 2 1 0", "--tuning", "0"});
    EXPECT_EQ(c6.out,
              "x 3 2 2 1 0 in Standard (E2 A2 D3 G3 B3 E4): C E A C E, C in the bass\n"
              "1. C6    C E G A  (1 3 5 6), without G\n"
              "2. Am/C  A C E  (1 b3 5)\n");
    const Outcome none = chords({"identify", "x30xxx"});
    EXPECT_EQ(none.code, kExitOk);
    EXPECT_NE(none.out.find("no chord of the catalogue has these notes"), std::string::npos);

    // The same shape in a tuning named, or given as its notes.
    for (const char* tuning : {"Open G", "D2 G2 D3 G3 B3 D4", "D2&G2&D3&G3&B3&D4"}) {
        const auto doc =
            nlohmann::json::parse(chords({"identify", "000000", "--tuning", tuning, "--json"}).out);
        EXPECT_EQ(doc["notes"], nlohmann::json({"D", "G", "D", "G", "B", "D"})) << tuning;
        EXPECT_EQ(doc["bass"], "D");
        ASSERT_EQ(doc["names"].size(), 1u) << tuning;
        EXPECT_EQ(doc["names"][0]["name"], "G/D");
        EXPECT_EQ(doc["names"][0]["formula"], nlohmann::json({"1", "3", "5"}));
    }
    // With a capo the shape counts its frets from it and sounds that much higher.
    const Outcome capo = chords({"identify", "x32010", "--capo", "2"});
    EXPECT_EQ(capo.out,
              "x 3 2 0 1 0 in Standard (E2 A2 D3 G3 B3 E4), capo at the 2nd fret: "
              "D F# A D F#, D in the bass\n"
              "1. D  D F# A  (1 3 5)\n");
    const auto capoDoc = nlohmann::json::parse(
        chords({"identify", "000000", "--tuning", "Open G", "--capo", "5", "--json"}).out);
    EXPECT_EQ(capoDoc["capo"], 5);
    EXPECT_EQ(capoDoc["names"][0]["name"], "C/G");

    const auto am7 = nlohmann::json::parse(chords({"identify", "x,0,2,0,1,0", "--json"}).out);
    EXPECT_EQ(am7["frets"], nlohmann::json({-1, 0, 2, 0, 1, 0}));
    ASSERT_EQ(am7["names"].size(), 2u);
    EXPECT_EQ(am7["names"][1]["name"], "C6/A");
    EXPECT_EQ(am7["names"][1]["root"], "C");
    EXPECT_EQ(am7["names"][1]["type"], "6");
    EXPECT_EQ(am7["names"][1]["notes"], nlohmann::json({"C", "E", "G", "A"}));
}

std::size_t count(const std::string& text, const std::string& part) {
    std::size_t n = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++n;
    return n;
}

TEST(ChordsCommand, SvgDrawsTheFingeringAsTheNeckShowsIt) {
    struct Row {
        std::vector<std::string> args;
        const char* title;
        const char* caption;
        std::size_t dots, rings, crosses, barres;
        const char* firstFret;  // the label beside a neck up from the nut, or ""
    };
    const Row rows[] = {
        {{"C"}, ">C<", "C E G", 3, 2, 1, 0, ""},
        {{"Bm", "--variation", "2"}, ">Bm<", "B D F#", 2, 0, 0, 1, ">7fr<"},
        {{"C", "--variation", "8"}, ">C/E<", "1 3 5", 3, 3, 0, 0, ""},
        // The capo lies over the nut as one more bar, and is named.
        {{"D", "--capo", "2"}, ">Capo 2<", "capo at the 2nd fret: C shape", 3, 2, 1, 1, ""},
        {{"F#m", "--capo", "2", "--variation", "8"}, ">F#m/A<", "Em/G shape", 3, 3, 0, 1, ""},
    };
    const auto path = testing::TempDir() + "zt_chord.svg";
    for (const auto& row : rows) {
        std::filesystem::remove(path);
        auto args = row.args;
        args.insert(args.end(), {"--svg", path});
        const Outcome run = chords(args);
        ASSERT_EQ(run.code, kExitOk) << run.err;
        const std::string svg = file::readAll(path).bytes;
        EXPECT_EQ(svg.rfind("<svg xmlns=\"http://www.w3.org/2000/svg\"", 0), 0u);
        EXPECT_NE(svg.find(row.title), std::string::npos) << row.title;
        EXPECT_NE(svg.find(row.caption), std::string::npos) << row.caption;
        EXPECT_EQ(count(svg, "<circle") - count(svg, "fill=\"#3A3228\"") - row.rings, row.dots)
            << svg;
        EXPECT_EQ(count(svg, "fill=\"none\""), row.rings);
        EXPECT_EQ(count(svg, "<path"), row.crosses);
        EXPECT_EQ(count(svg, "rx="), row.barres);
        EXPECT_EQ(count(svg, "fr<"), std::string(row.firstFret).empty() ? 0u : 1u);
        if (*row.firstFret) {
            EXPECT_NE(svg.find(row.firstFret), std::string::npos);
        }
    }
    std::filesystem::remove(path);
}

TEST(ChordsCommand, DiagramsShowFretsFingersBarresMutedAndOpenStrings) {
    const Outcome c = chords({"C", "--limit", "1"});
    ASSERT_EQ(c.code, kExitOk) << c.err;
    EXPECT_EQ(c.out,
              "C (C E G; 1 3 5) in Standard (E2 A2 D3 G3 B3 E4): 20 fingerings, showing 1\n"
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
    EXPECT_NE(f.out.find("F#m (F# A C#; 1 b3 5) in Standard"), std::string::npos) << f.out;
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
    EXPECT_EQ(doc["notes"], nlohmann::json({"A", "C", "E"}));
    EXPECT_EQ(doc["formula"], nlohmann::json({"1", "b3", "5"}));
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

    EXPECT_FALSE(doc.contains("capo"));
    // Under a capo: the frets from the capo, the pitches as heard.
    const auto capo = nlohmann::json::parse(chords({"D", "--capo", "2", "--json"}).out);
    EXPECT_EQ(capo["capo"], 2);
    EXPECT_EQ(capo["shape"], "C");
    EXPECT_EQ(capo["variations"][0]["frets"], nlohmann::json({-1, 3, 2, 0, 1, 0}));
    EXPECT_EQ(capo["variations"][0]["pitches"], nlohmann::json({-1, 50, 54, 57, 62, 66}));
    const Outcome text = chords({"D", "--capo", "2", "--limit", "1"});
    EXPECT_NE(text.out.find("D (D F# A; 1 3 5) in Standard (E2 A2 D3 G3 B3 E4), capo at the 2nd "
                            "fret (C shapes): "),
              std::string::npos)
        << text.out;
    EXPECT_NE(text.out.find("#1  x 3 2 0 1 0\n"), std::string::npos) << text.out;

    const auto dropD = nlohmann::json::parse(chords({"D", "--tuning", "drop d", "--json"}).out);
    EXPECT_EQ(dropD["tuning"], "Drop D");
    EXPECT_EQ(dropD["variations"][0]["pitches"][0], 38) << "D2 on the open 6th string";
}

TEST(ChordsCommand, AChordWithoutAFingeringSaysSoAndSucceeds) {
    const Outcome text = chords({"Ddim7", "--tuning", "Csus2"});
    EXPECT_EQ(text.code, kExitOk);
    EXPECT_EQ(text.out,
              "Ddim7 (D F G# B; 1 b3 b5 bb7) in Csus2 (C2 G2 C3 G3 C4 D4): no fingering exists.\n");
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
