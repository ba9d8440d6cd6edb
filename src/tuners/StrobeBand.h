#pragma once
// The strobe display's motion. A strobe band is a row of dark and light
// stripes that drifts right when the note is sharp and left when it is flat,
// at a speed proportional to the cents, and stands still within a tenth of a
// cent. Readings come 20 times a second but the band is drawn at the
// display's rate, so the deviation it moves by glides from the shown value
// to each new reading over one poll, and the band's phase is the integral of
// the speed over time: a new reading changes how fast it moves, never where
// it is.
//
// Times are seconds on any steady clock, the same one for readings and
// frames. Plain arithmetic: nothing allocates once the stripe buffer has
// grown to the band's size.

#include <vector>

namespace zt {

class StrobeBand {
public:
    // Band periods per second for each cent off the note: a stripe pattern
    // of 32 points moves 1.6 points a second at 1 cent, 80 at 50 cents.
    static constexpr double kPeriodsPerSecondPerCent = 0.05;
    // Within this many cents the band does not move.
    static constexpr double kStillCents = 0.1;
    // How long the shown deviation takes to reach a new reading: one poll.
    static constexpr double kGlideSeconds = 0.05;

    // Periods per second at `cents` off; positive moves right.
    static double speedFor(double cents);

    // A reading of `cents` off the note, taken at `now`.
    void reading(double cents, double now);
    // No pitch from `now` on: the band stops where it is.
    void silence(double now);
    // Moves the band on to `now` (a frame's time) and returns its phase,
    // 0 to 1 of a period. Times earlier than the last one change nothing.
    double advance(double now);

    double phase() const { return phase_; }
    // Periods moved since creation, with their sign: the drift's total.
    double travelled() const { return travelled_; }
    // The deviation the band moves by at `now`.
    double shownCents(double now) const;
    bool pitched() const { return pitched_; }

    // One dark stripe of a band drawn from x = 0 to `width`.
    struct Stripe {
        float left;
        float right;
    };
    // The dark stripes (half of each `period`, clipped to the band) of a band
    // at `phase`, `speedFactor` times as fast as the band's own motion (the
    // finer rows of the display move faster). Replaces out's contents.
    static void stripes(double phase, double speedFactor, float width, float period,
                        std::vector<Stripe>& out);

private:
    void integrate(double from, double to);

    double phase_ = 0.0;
    double travelled_ = 0.0;
    double lastFrame_ = 0.0;
    bool started_ = false;
    bool pitched_ = false;
    double from_ = 0.0;
    double to_ = 0.0;
    double glideStart_ = 0.0;
};

}  // namespace zt
