#pragma once
// The rules by which the main frequency service turns a raw frequency into
// what the tuner shows.

#include <span>

#include "dsp/NoteDescription.h"

namespace zt {

// One smoothing step. f: the analyzer's reading (Hz; -2 no microphone, -1 no
// pitch, 0 nothing captured yet); current: the last frequency reported, kept
// here. -2 passes through; no pitch and nothing captured repeat `current`;
// a pitch replaces `current` and is reported as is, unless it moved by 0.05
// to 0.5 Hz from it (single precision): then the two are averaged.
float smoothFrequency(float f, float& current);

// The candidate nearest to f in hertz; candidates in rising order. Below the
// first or above the last the end one; a tie goes to the lower note (A4 =
// 440 and A#4 = 466.16: 453.0 Hz is A4, 453.2 Hz A#4). nullptr when there
// are no candidates.
NoteDescription* nearestNote(std::span<NoteDescription* const> candidates, double f);

// Cents of `measured` above `reference` as the tuner shows them, rounded to
// 0.1 cent, halves away from zero. Classic detection compares the two in
// whole tenths of a hertz (a step of 1.6 to 2.1 cents at the low strings);
// otherwise they are compared as measured, which keeps what the fine
// detector resolves.
double displayedCents(double reference, double measured, bool classic = true);

// The tenth of a cent to show for a note that showed `shown` last time: kept
// while the exact value stays within 0.08 of it, so that a steady tone whose
// cents sit near a rounding boundary reads one value rather than flickering
// between two; otherwise the exact value rounded. Never more than 0.08 off.
double steadyCents(double exact, double shown);

}  // namespace zt
