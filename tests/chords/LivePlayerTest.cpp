// The chords' strings through the sound engine's stream and OpenAL,
// recorded by openal-soft's wave-file backend: a whole chord keeps its
// 60 ms spacing to the sample, lowest string first, muted strings silent;
// and each string sounds the shape's real pitch in tunings other than the
// recorded standard one.
#include <gtest/gtest.h>
#include <sndfile.h>

#include <chrono>
#include <thread>

#include "ChordTesting.h"
#include "chords/ChordPlayer.h"
#include "sound/SoundBank.h"
#include "sound/SoundTesting.h"

namespace zt::test {
namespace {

using namespace std::chrono_literals;

// A 2 ms click of amplitude `amplitude`, falling to nothing.
std::filesystem::path writeClick(int id, float amplitude) {
    const auto path = testing::scratchPath("string" + std::to_string(id) + ".wav");
    SF_INFO info{0, 44100, 1, SF_FORMAT_WAV | SF_FORMAT_FLOAT, 0, 0};
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    std::vector<float> click(88);
    for (std::size_t i = 0; i < click.size(); ++i)
        click[i] = amplitude * (1.0f - float(i) / float(click.size()));
    sf_writef_float(file, click.data(), static_cast<sf_count_t>(click.size()));
    sf_close(file);
    return path;
}

StringNotes notesOf(const char* tuning, const char* root, const char* type, const char* frets) {
    ChordLibrary library;
    useTuning(library, tuning);
    const VariationSet set = library.getVariations(root, type);
    const int at = find(set, frets);
    if (at < 0) {
        ADD_FAILURE() << "no " << frets << " among the shapes of " << root << type;
        return {};
    }
    return stringNotes(set.records[at]);
}

TEST(ChordPlayerLive, AWholeChordSoundsItsStringsSixtyMillisecondsApartLowestFirst) {
    testing::WaveRecorder recorder;
    ASSERT_TRUE(recorder.engine().hasDevice()) << "openal-soft's wave backend did not open";
    // String n's click is n / 10 loud, so the recording tells which string sounded.
    std::vector<SoundRequest> clicks;
    for (int string = 0; string < 6; ++string)
        clicks.push_back(
            {SoundBank::stringSoundId(string), writeClick(string, (string + 1) / 10.0f)});
    recorder.engine().loadBuffersAsync(clicks);
    ASSERT_TRUE(recorder.waitLoaded());
    {
        ChordPlayer player(recorder.engine());
        player.playChord(StringNotes{});
        EXPECT_FALSE(player.isStreaming()) << "a chord without strings starts nothing";
        player.playChord(notesOf("Standard", "A", "m", "x 0 2 2 1 0"));
        EXPECT_TRUE(player.heard().waiting);
        // What is heard, looked at now and then as a screen would: every
        // string from when it reaches the speaker, on the stream's clock.
        HeardStrings all;
        for (int look = 0; look < 120; ++look) {
            std::this_thread::sleep_for(5ms);
            const HeardStrings heard = player.heard();
            EXPECT_EQ(heard.secondsAgo[5], HeardStrings::kNever) << "the muted 6th string";
            if (heard.secondsAgo[0] != HeardStrings::kNever &&
                all.secondsAgo[0] == HeardStrings::kNever)
                all = heard;
        }
        EXPECT_FALSE(player.heard().waiting);
        for (int n = 1; n < 5; ++n)
            EXPECT_NEAR(all.secondsAgo[n] - all.secondsAgo[n - 1], 0.06, 1e-9) << n;
        player.releaseStreamWhenSilent();
        EXPECT_FALSE(player.isStreaming());
    }
    const auto recording = recorder.finish();
    for (const auto& click : clicks)
        std::filesystem::remove(click.path);

    // Onsets: a sample above the threshold after 1 ms of quiet.
    std::vector<std::size_t> onsets;
    std::size_t quiet = 0;
    for (std::size_t i = 0; i < recording.samples.size(); ++i) {
        const float s = std::abs(recording.samples[i]);
        if (s > 0.005f && quiet >= 44)
            onsets.push_back(i);
        quiet = s > 0.005f ? 0 : quiet + 1;
    }
    ASSERT_EQ(onsets.size(), 5u) << "the muted 6th string sounded, or a string was lost";
    float previous = 1.0f;
    for (std::size_t i = 0; i < onsets.size(); ++i) {
        EXPECT_EQ(onsets[i] - onsets[0], i * 2646) << "string " << 5 - i;
        const float level =
            testing::peak(testing::Recording{recording}.window(onsets[i], 0, 0.002));
        EXPECT_LT(level, previous) << "string " << 5 - i << " out of order";
        previous = level;
    }
}

struct PitchRow {
    const char* name;
    const char* tuning;
    const char* root;
    const char* type;
    const char* frets;
    int string;
    double hertz;
};
void PrintTo(const PitchRow& row, std::ostream* os) {
    *os << row.name;
}

class ChordPlayerPitch : public ::testing::TestWithParam<PitchRow> {};

TEST_P(ChordPlayerPitch, AStringSoundsTheShapesNote) {
    const auto& row = GetParam();
    testing::WaveRecorder recorder;
    ASSERT_TRUE(recorder.engine().hasDevice());
    std::vector<SoundRequest> strings;
    for (int string = 0; string < 6; ++string) {
        const int id = SoundBank::stringSoundId(string);
        strings.push_back({id, SoundBank::path(SoundBank::fileName(id))});
    }
    recorder.engine().loadBuffersAsync(strings);
    ASSERT_TRUE(recorder.waitLoaded());
    {
        ChordPlayer player(recorder.engine());
        player.playString(notesOf(row.tuning, row.root, row.type, row.frets), row.string);
        std::this_thread::sleep_for(500ms);
    }
    const auto played = recorder.finish();
    const auto tone = played.window(testing::onset(played.samples, 0.01f), 0.05, 0.45);
    ASSERT_GT(tone.size(), 44100u / 4) << "nothing was played";
    const double measured = testing::toneFrequency(tone, played.rate, row.hertz);
    EXPECT_LT(std::abs(testing::cents(measured, row.hertz)), 1.0) << measured << " Hz";
}

INSTANTIATE_TEST_SUITE_P(
    Tunings, ChordPlayerPitch,
    ::testing::Values(
        PitchRow{"DropDSixthStringIsD2", "Drop D", "D", "", "0 0 0 2 3 2", 6, 73.416},
        PitchRow{"StandardAMinorFifthStringIsA2", "Standard", "A", "m", "x 0 2 2 1 0", 5, 110.0},
        PitchRow{"StandardCFifthStringThirdFretIsC3", "Standard", "C", "", "x 3 2 0 1 0", 5,
                 130.813},
        PitchRow{"OpenGFirstStringIsD4", "Open G", "G", "", "0 0 0 0 0 0", 1, 293.665},
        PitchRow{"BaritoneSixthStringIsB1", "Baritone", "B", "m", "0 2 2 0 0 0", 6, 61.735}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace zt::test
