#pragma once
// The sound bank: every short sound of the program, by id and file name, in
// loading order. The six open strings of standard tuning (ids 1 to 6, highest
// string first) and five metronome packs of three clicks each (ids 51 to 65).
// Files live in the resource folder's "sounds" directory.

#include <array>
#include <filesystem>
#include <string_view>

namespace zt {

struct SoundBankEntry {
    int id;
    std::string_view file;
};

class SoundBank {
public:
    static constexpr int kStringCount = 6;
    static constexpr int kPackCount = 5;
    static constexpr int kFirstClickId = 51;
    static constexpr int kLastId = 65;
    // Groups 0 to 6, one source each: the metronome uses 1 (beats) and 2
    // (subdivisions); string k uses group k + 1.
    static constexpr int kGroupCount = 7;

    // Clicks of a pack, in the order of their ids.
    enum class Click { Tick = 0, Tock = 1, Subtick = 2 };

    static constexpr std::array<SoundBankEntry, 21> kEntries{{
        {1, "E4_.caf"},        {2, "B3_.caf"},        {3, "G3_.caf"},        {4, "D3_.caf"},
        {5, "A2_.caf"},        {6, "E2_.caf"},        {51, "1_tick.caf"},    {52, "1_tock.caf"},
        {53, "1_subtick.caf"}, {54, "2_tick.caf"},    {55, "2_tock.caf"},    {56, "2_subtick.caf"},
        {57, "3_tick.caf"},    {58, "3_tock.caf"},    {59, "3_subtick.caf"}, {60, "4_tick.caf"},
        {61, "4_tock.caf"},    {62, "4_subtick.caf"}, {63, "5_tick.caf"},    {64, "5_tock.caf"},
        {65, "5_subtick.caf"},
    }};

    // Pack names by pack number - 1.
    static constexpr std::array<std::string_view, kPackCount> kPackNames{
        "Classic", "Wood", "Cowbell", "Metal", "Electro"};

    // string: 0 (highest, E4) to 5 (lowest, E2).
    static constexpr int stringSoundId(int string) { return string + 1; }
    static constexpr bool isStringSound(int id) { return id >= 1 && id <= kStringCount; }
    // pack: 1 to 5.
    static constexpr int clickSoundId(int pack, Click click) {
        return kFirstClickId + 3 * (pack - 1) + static_cast<int>(click);
    }

    // Absolute note number (C0 = 0, A4 = 57) of an open string of standard
    // tuning, as recorded: string 0 (E4, 52) to 5 (E2, 28); 0 for any other.
    static constexpr int openStringNote(int string) {
        constexpr std::array<int, kStringCount> kNotes{52, 47, 43, 38, 33, 28};
        return string >= 0 && string < kStringCount ? kNotes[static_cast<size_t>(string)] : 0;
    }
    // Equal-tempered frequency in hertz (A4 = 440 Hz) of an open string of
    // standard tuning; string 0 to 5 as above, 0 for any other.
    static double openStringFrequency(int string);

    // File name of a sound id; empty for an id outside the bank.
    static std::string_view fileName(int id);
    // Where the file of a bank sound is read from.
    static std::filesystem::path path(std::string_view file);
};

}  // namespace zt
