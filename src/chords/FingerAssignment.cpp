#include "chords/FingerAssignment.h"

#include <algorithm>

namespace zt {

namespace {

// Not yet given a finger.
constexpr std::int32_t kUnassigned = 100;

// Grid cells.
constexpr int kNotPlayed = -1;
constexpr int kFrettedElsewhere = 0;
constexpr int kFrettedHere = 1;
constexpr int kOpenString = 7;

struct Barre {
    int fret = 0;
    int first = 0;
    int last = 0;
    bool valid = true;
};

struct Shape {
    const std::array<std::int32_t, kStringCount>& frets;
    int played;

    int cell(int fret, int column) const {
        if (column >= played)
            return kNotPlayed;
        const int f = frets[column];
        if (f == 0)
            return kOpenString;
        return f == fret ? kFrettedHere : kFrettedElsewhere;
    }
    bool anyAt(int fret) const {
        return std::find(frets.begin(), frets.begin() + played, fret) != frets.begin() + played;
    }
};

// A barre above the lowest fret that the hand could not hold: a string on
// its bass side pressed higher, a string past its end pressed at or below
// it, or (more than two frets up) a bass-side string pressed at its own fret.
bool unplayable(const Barre& b, const Shape& s, int lowestFretted) {
    for (int p = 0; p < b.last; ++p) {
        if (s.frets[p] > b.fret)
            return true;
    }
    for (int p = b.last + 1; p < s.played; ++p) {
        if (s.frets[p] >= lowestFretted && s.frets[p] <= b.fret)
            return true;
    }
    if (b.fret - lowestFretted > 2) {
        for (int p = 0; p < b.first; ++p) {
            if (s.frets[p] == b.fret)
                return true;
        }
    }
    return false;
}

// Finds the barres (at most six slots, at most two found above the lowest
// fret while fewer than two exist), cancels the impossible ones and keeps
// the valid ones in order.
std::array<Barre, 6> findBarres(const Shape& s, int lowestFretted, int maxFret, int& count) {
    std::array<Barre, 6> found{};
    int foundCount = 0;

    // The lowest fret: only fretted strings after the last open one count.
    int runFirst = -1, runLast = -1, runCount = 0, lastOpen = -1;
    for (int col = 0; col < kStringCount; ++col) {
        const int c = s.cell(lowestFretted, col);
        if (c == kFrettedHere) {
            if (runCount == 0)
                runFirst = col;
            ++runCount;
            runLast = col;
        } else if (c == kOpenString) {
            runCount = 0;
            lastOpen = col;
        }
    }
    if (runCount >= 2)
        found[foundCount++] = {lowestFretted, runFirst, runLast, true};
    int scanStart = std::max(lastOpen, runLast) + 1;

    // Higher frets, each scanned beyond the strings the rows below covered.
    for (int fret = lowestFretted + 1; fret <= maxFret && foundCount < 2; ++fret) {
        int first = -1, last = 0, hits = 0;
        for (int col = scanStart; col < kStringCount; ++col) {
            if (s.cell(fret, col) != kFrettedHere)
                continue;
            if (hits++ == 0)
                first = col;
            last = col;
        }
        if (hits >= 2) {
            Barre b{fret, first, last, true};
            b.valid = !unplayable(b, s, lowestFretted);
            found[foundCount++] = b;
        }
        if (last > 0)
            scanStart = last + 1;
    }

    std::array<Barre, 6> kept{};
    count = 0;
    for (int i = 0; i < foundCount; ++i) {
        if (found[i].valid)
            kept[count++] = found[i];
    }
    return kept;
}

void storeBarres(const std::array<Barre, 6>& barres, int count, BarreInfo& info) {
    info = BarreInfo{};
    info.count = count;
    for (int i = 0; i < count; ++i) {
        info.valid[i] = 1;
        info.first[i] = barres[i].first;
        info.last[i] = barres[i].last;
        info.fret[i] = barres[i].fret;
    }
}

int barreAt(const BarreInfo& info, int fret) {
    for (int i = 0; i < info.count; ++i) {
        if (info.fret[i] == fret)
            return i;
    }
    return -1;
}

}  // namespace

FingerAssignment assignFingers(const std::array<std::int32_t, kStringCount>& frets, int played,
                               int lowestFretted) {
    FingerAssignment a;
    const Shape s{frets, played};
    auto& fingers = a.fingers;
    fingers.fill(kUnassigned);
    for (int p = 0; p < kStringCount; ++p) {
        if (p >= played) {
            fingers[p] = fingercode::kMuted;
            continue;
        }
        a.maxFret = std::max<int>(a.maxFret, frets[p]);
        if (frets[p] == 0) {
            fingers[p] = fingercode::kOpen;
            ++a.openCount;
        }
    }
    if (a.maxFret == 0)
        return a;

    int count = 0;
    const auto barres = findBarres(s, lowestFretted, a.maxFret, count);
    storeBarres(barres, count, a.barres);
    // Each barre marks its ends and the strings between pressed at its fret
    // with -5 - (its height above the lowest fretted fret).
    for (int i = 0; i < count; ++i) {
        const Barre& b = barres[i];
        const std::int32_t code = fingercode::kLowestBarre - (b.fret - lowestFretted);
        for (int p = b.first; p <= b.last; ++p) {
            if (p == b.first || p == b.last || frets[p] == b.fret)
                fingers[p] = code;
        }
    }

    // The lowest fret: a barre there is the first finger and the strings on
    // its bass side at that fret come next, toward the bass; without one,
    // the strings there take 1, 2, ... from the bass up.
    int next = 1;
    if (count > 0 && barres[0].fret == lowestFretted) {
        a.barres.finger[0] = next++;
        for (int p = barres[0].first - 1; p >= 0; --p) {
            if (frets[p] == lowestFretted && fingers[p] == kUnassigned)
                fingers[p] = next++;
        }
    } else {
        for (int p = 0; p < played; ++p) {
            if (frets[p] == lowestFretted)
                fingers[p] = next++;
        }
    }

    // Each higher fret, from the bass up: a barre there takes one finger for
    // all its strings where its first string comes, every other string
    // pressed there its own. A finger thus never lies on the bass side of a
    // lower-numbered one at the same fret, as a hand reaching across the
    // neck places them.
    for (int fret = lowestFretted + 1; fret <= a.maxFret; ++fret) {
        const int barre = barreAt(a.barres, fret);
        for (int p = 0; p < played; ++p) {
            if (frets[p] != fret)
                continue;
            if (barre >= 0 && fingercode::isBarre(fingers[p])) {
                if (a.barres.finger[barre] == 0)
                    a.barres.finger[barre] = next++;
                fingers[p] = -4 - a.barres.finger[barre];
            } else if (fingers[p] == kUnassigned) {
                fingers[p] = next++;
            }
        }
    }
    a.fingerCount = next;
    if (next > 5)
        fingers[0] = fingercode::kMuted;
    return a;
}

void spreadFingers(FingerAssignment& a, const std::array<std::int32_t, kStringCount>& frets,
                   int played, int lowestFretted) {
    const int span = a.maxFret - lowestFretted;
    if ((a.fingerCount != 3 && a.fingerCount != 4) || (span != 2 && span != 3))
        return;
    const Shape s{frets, played};
    // Moves every finger on `fret` up by `by`, a barre there once.
    const auto raise = [&](int fret, int by) {
        for (int p = 0; p < played; ++p) {
            if (frets[p] != fret)
                continue;
            if (fingercode::isBarre(a.fingers[p]))
                a.fingers[p] -= by;
            else if (a.fingers[p] > 0)
                a.fingers[p] += by;
        }
        if (const int barre = barreAt(a.barres, fret); barre >= 0)
            a.barres.finger[barre] += by;
    };
    const bool aboveLowest = s.anyAt(lowestFretted + 1);
    const bool belowTop = s.anyAt(a.maxFret - 1);
    if (!aboveLowest && !belowTop) {
        raise(a.maxFret, a.fingerCount == 3 && span == 3 ? 2 : 1);
    } else if (aboveLowest && !belowTop) {
        raise(a.maxFret, 1);
    } else if (!aboveLowest && belowTop) {
        raise(a.maxFret, 1);
        raise(a.maxFret - 1, 1);
    }
}

}  // namespace zt
