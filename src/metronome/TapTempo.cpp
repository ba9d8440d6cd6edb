#include "metronome/TapTempo.h"

#include <cstdio>
#include <string>

#include "framework/Log.h"
#include "metronome/TempoRules.h"

namespace zt {

namespace {

std::string format(const char* pattern, double a, int b = 0) {
    char text[96];
    std::snprintf(text, sizeof text, pattern, a, b);
    return text;
}

}  // namespace

TapTempo::TapTempo(const TickClock& clock) : timerDblClick_(clock) {}

bool TapTempo::readyForDblClick() const {
    return readyForDblClick_ || (rearmPending_ && timerDblClick_.elapsedSec() >= kRearmSeconds);
}

void TapTempo::setReadyForDblClick() {
    readyForDblClick_ = true;
    rearmPending_ = false;
}

void TapTempo::cancelRearm() {
    rearmPending_ = false;
}

std::optional<int> TapTempo::tap() {
    if (readyForDblClick()) {
        log("******************************* START!");
        timerDblClick_.start();
        readyForDblClick_ = false;
        rearmPending_ = true;
        return std::nullopt;
    }

    const double interval = timerDblClick_.elapsedSec();
    log("******************************* READY!");
    log(format("Interval : %f", interval));
    setReadyForDblClick();
    if (interval > kLongestInterval || interval < kShortestInterval)
        return std::nullopt;

    duration_ = interval;
    int tempo = static_cast<int>(60.0 / duration_);
    log(format("Duration :%f  BPM :%d", duration_, tempo));
    if (tempo > kMaxTempo - 1)
        tempo = kMaxTempo;
    // 3.0 s may read a hair long on a real clock; the wheel has nothing below 20.
    if (tempo < kMinTempo)
        tempo = kMinTempo;
    log("New BPM :" + std::to_string(tempo));
    return rowForTempo(tempo);
}

}  // namespace zt
