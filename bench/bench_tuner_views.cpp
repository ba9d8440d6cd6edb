// The chromatic tuner's practice views, frame by frame: what each costs the
// program to make one frame at the display's rate (60 a second here), with a
// reading every third frame as the tuner's 20 polls a second give. The
// strobe band moves on and lays out its three rows of stripes; the pitch
// history, ten seconds full of readings with gaps and changes of note, makes
// its lines and their rectangles; each then sets its rectangle nodes, as the
// views do. The argument is the view's width in pixels: 288 on a 320 x 480
// window, 720 and 1280 for larger ones. Drawing the nodes is the renderer's
// and is not counted here.
#include <benchmark/benchmark.h>

#include <QSGSimpleRectNode>
#include <cmath>
#include <vector>

#include "BenchRun.h"
#include "tuners/PitchTrace.h"
#include "tuners/StrobeBand.h"
#include "tuners/ui/PracticeViewItems.h"

namespace {

using namespace zt;

constexpr double kFrame = 1.0 / 60.0;

// A slow vibrato of +-8 cents around +3.
double cents(int frame) {
    return 3.0 + 8.0 * std::sin(frame * 0.05);
}

void strobeFrame(benchmark::State& state) {
    const auto width = static_cast<float>(state.range(0));
    const float unit = width / 288.0f;
    StrobeBand band;
    std::vector<StrobeBand::Stripe> scratch;
    std::vector<QRectF> rects;
    QSGNode root;
    for (int i = 0; i < 3 * StrobeBandItem::kStripesPerRow; ++i)
        root.appendChildNode(new QSGSimpleRectNode);
    int frame = 0;
    double now = 0.0;
    for (auto _ : state) {
        if (frame % 3 == 0)
            band.reading(cents(frame), now);
        const double phase = band.advance(now);
        StrobeBandItem::layout(phase, 3, width, 84.0f * unit, 32.0f * unit, 4.0f * unit, scratch,
                               rects);
        zt::syncRects<QSGSimpleRectNode>(root, 0, rects, Qt::black);
        ++frame;
        now += kFrame;
    }
    state.counters["stripes"] = static_cast<double>(rects.size());
}

void traceFrame(benchmark::State& state) {
    const auto width = static_cast<float>(state.range(0));
    PitchTrace trace;
    // Ten seconds of readings: a note held for 2 s, then 0.5 s of silence,
    // then the next note.
    double t = 0.0;
    for (int i = 0; i < 200; ++i, t += 0.05) {
        const int phrase = i % 50;
        if (phrase >= 40)
            trace.gap(t);
        else
            trace.add(t, cents(i), 40 + i / 50);
    }
    const float height = 88.0f * width / 288.0f;
    std::vector<PitchTrace::Point> pieces;
    std::vector<QRectF> rects;
    QSGNode root;
    for (std::size_t i = 0; i < PitchTrace::kCapacity; ++i)
        root.appendChildNode(new QSGSimpleRectNode);
    int frame = 0;
    for (auto _ : state) {
        if (frame % 3 == 0) {
            trace.add(t, cents(frame), 40);
            t += 0.05;
        }
        trace.lines(t, width, height, pieces);
        PitchTraceItem::layout(pieces, 2.0f * width / 288.0f, rects);
        zt::syncRects<QSGSimpleRectNode>(root, 0, rects, Qt::yellow);
        ++frame;
    }
    state.counters["pieces"] = static_cast<double>(pieces.size() / 2);
}

BENCHMARK(strobeFrame)->Arg(288)->Arg(720)->Arg(1280)->MinTime(bench::minTime(0.5));
BENCHMARK(traceFrame)->Arg(288)->Arg(720)->Arg(1280)->MinTime(bench::minTime(0.5));

}  // namespace
