// Chord names as the command line and the chords screen take them: the
// input's first line is the name (flats allowed), the second a root and a
// type key for the library, looked up in the standard tuning.

#include "FuzzSupport.h"
#include "chords/ChordCatalogue.h"
#include "chords/ChordLibrary.h"
#include "cli/ChordArguments.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static zt::ChordLibrary library;
    const auto parts = zt::fuzz::lines(data, size);
    const std::string& text = parts[0];

    (void)zt::chords::parseChord(text);
    (void)zt::chords::rootForLabel(text);
    (void)zt::chords::typeKeyForLabel(text);
    (void)zt::chords::chordInfo(text);
    if (auto name = zt::cli::chordName(text)) {
        const auto [root, type] = zt::cli::splitChord(text);
        if (!zt::chords::parseChord(*name) || library.getVariations(root, type).count == 0)
            __builtin_trap();  // an accepted name must name a chord
    }
    if (parts.size() > 1)
        (void)library.getVariations(parts[0], parts[1]);
    return 0;
}
