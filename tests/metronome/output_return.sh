#!/usr/bin/env bash
# Runs the output-return test of the metronome inside a private
# PulseAudio server whose null sink "zt_tone" the test unloads and loads again.
set -uo pipefail
skip() { echo "SKIPPED: $*"; exit 77; }
for tool in pulseaudio pactl parec; do
  command -v "$tool" >/dev/null || skip "$tool is not installed"
done
# shellcheck source=../audio/pulse_server.sh
source "$(dirname "$0")/../audio/pulse_server.sh"
start_server
"$1" --gtest_filter='OutputReturn.*'
