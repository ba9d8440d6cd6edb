// Tuning tokens: the input's first line as the command line's tuning
// argument (a number or a name), then as a tuning string ("E2&A2&...") whose
// tokens are handed to the chords library and the tuners' catalogue helpers.

#include "FuzzSupport.h"
#include "chords/ChordCatalogue.h"
#include "chords/ChordLibrary.h"
#include "cli/ChordArguments.h"
#include "tunings/TuningCatalogue.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static zt::ChordLibrary library;
    const auto parts = zt::fuzz::lines(data, size);
    const std::string& text = parts[0];

    if (auto index = zt::cli::tuningIndex(text)) {
        if (*index >= zt::tunings::kCount)
            __builtin_trap();  // an accepted tuning must be in the catalogue
        (void)zt::cli::useTuning(library, *index);
    }

    const auto tokens = zt::tunings::tokens(text);
    (void)zt::tunings::compactLabel(text);
    for (const auto& token : tokens)
        (void)zt::chords::tokenNumber(token);
    if (library.setTuning(tokens))
        (void)library.getVariations("C", "");
    if (library.setExpandedTuning(tokens))
        (void)library.getVariations("E", "m");
    // Every tuning change must leave the library usable.
    (void)library.getVariations("A", "7");
    return 0;
}
