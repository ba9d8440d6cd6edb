// Sound files as the tuner's analysis reads them: the bytes as a file, opened
// by FileCapture (libsndfile, libsoxr to 8000 Hz), pumped 400 samples at a
// time into FrequencyAnalyzer, which reads a frequency and a level after
// each piece; and the same file decoded whole by SoundDecoder.

#include <memory>
#include <string>

#include "FuzzSupport.h"
#include "dsp/FinePDA.h"
#include "dsp/FrequencyAnalyzer.h"
#include "dsp/OvertonePDA.h"
#include "framework/Log.h"
#include "sound/FileCapture.h"
#include "sound/SoundDecoder.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    zt::setLogQuiet(true);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // A header may promise hours of sound; the analysis sees at most this much.
    constexpr int kMaxPieces = 200;
    static zt::FinePDA fine{zt::TaperSettings(1)};
    static zt::OvertonePDA overtone{zt::TaperSettings(2)};
    const auto path = zt::fuzz::writeScratch("input", data, size);

    std::string error;
    std::shared_ptr<zt::FileCapture> capture = zt::FileCapture::open(path, error);
    if (capture) {
        (void)capture->fileSeconds();
        zt::FourierPDA* detector = size % 2 ? static_cast<zt::FourierPDA*>(&fine) : &overtone;
        zt::FrequencyAnalyzer analyzer{detector};
        analyzer.setCapture(capture);
        analyzer.listen();
        for (int i = 0; i < kMaxPieces && capture->pump(400) > 0; ++i) {
            (void)analyzer.frequency();
            (void)analyzer.volumeLevel();
        }
        analyzer.stop();
    }
    (void)zt::SoundDecoder(8000).decode(path, error);
    return 0;
}
