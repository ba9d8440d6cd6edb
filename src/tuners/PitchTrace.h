#pragma once
// The last ten seconds of the tuner's readings, for a trace of the pitch in
// cents against the note heard: a ring of readings, and the trace's lines in
// a box for any time. A reading without pitch leaves a gap, as does a pause
// between readings longer than kLongestStep (the tuner not listening); a
// new note starts a new line, since its cents count from another note.
//
// Plain data: adding a reading never allocates, and the lines are written
// into a buffer the caller keeps, which stops growing once it has held a
// full trace.

#include <array>
#include <cstddef>
#include <vector>

namespace zt {

class PitchTrace {
public:
    static constexpr double kSpanSeconds = 10.0;
    // The trace's height is this many cents either way of the note.
    static constexpr double kRangeCents = 50.0;
    // The shaded band around the note.
    static constexpr double kBandCents = 5.0;
    // Two readings further apart than this are not joined.
    static constexpr double kLongestStep = 0.25;
    // Room for ten seconds of readings at up to 50 a second.
    static constexpr std::size_t kCapacity = 512;

    struct Reading {
        double time = 0.0;
        double cents = 0.0;
        // Which note the cents count from (any number that differs between
        // notes); kNoNote for a moment without pitch.
        int note = kNoNote;
    };
    static constexpr int kNoNote = -1;

    // Readings come in time order; one earlier than the last is dropped.
    void add(double time, double cents, int note);
    // A moment without pitch.
    void gap(double time) { add(time, 0.0, kNoNote); }
    void clear() { count_ = 0; }
    std::size_t size() const { return count_; }
    // The i-th oldest reading kept.
    const Reading& at(std::size_t i) const { return ring_[(head_ + i) % kCapacity]; }

    struct Point {
        float x;
        float y;
    };
    // The trace at `now` in a box of `width` x `height`: time runs from
    // now - kSpanSeconds at the left edge to now at the right, cents from
    // +kRangeCents at the top to -kRangeCents at the bottom (clamped to the
    // box). Replaces out's contents with line pieces, two points each; a
    // reading with no neighbour on its line is a short level piece, so it
    // still shows. A piece crossing the left edge starts outside the box:
    // the view clips it.
    void lines(double now, float width, float height, std::vector<Point>& out) const;
    // The y of `cents` in a box `height` high, clamped to it.
    static float yFor(double cents, float height);

private:
    std::array<Reading, kCapacity> ring_{};
    std::size_t head_ = 0;
    std::size_t count_ = 0;
};

}  // namespace zt
