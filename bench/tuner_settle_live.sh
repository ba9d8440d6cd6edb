#!/usr/bin/env bash
# The chromatic tuner in the real app, through a real capture device (a
# PulseAudio null sink whose monitor is the microphone, see
# tests/audio/pulse_server.sh): from a note's onset to the string lit, its
# frequency shown and the needle drawn within 1 degree (2 cents) of the
# centre, for at least half a second. Each run plays 1.5 s of silence then
# an in-tune A2 (110 Hz); the onset is taken as the moment paplay was
# started plus the silence, so the sink's 50 ms latency is included. Prints
# one figure per run; fails when a run has none (the needle never settled).
# Usage: bench/tuner_settle_live.sh build/default/src/zebtools [runs]
# Five runs, one in the short mode (ZT_BENCH_SHORT=1). Exit 77 (skipped)
# only where PulseAudio cannot run.
set -uo pipefail
app="$1"
case "${ZT_BENCH_SHORT:-0}" in
  0 | "") runs="${2:-5}" ;;
  *) runs="${2:-1}" ;;
esac
skip() { echo "SKIPPED: $*"; exit 77; }
for tool in pulseaudio pactl paplay sox python3; do
  command -v "$tool" >/dev/null || skip "$tool is not installed"
done
source "$(dirname "$0")/../tests/audio/pulse_server.sh"
export QT_QPA_PLATFORM=offscreen ZEBTOOLS_DATA_DIR="$dir/data"
mkdir -p "$dir/data"
start_server
pactl set-default-source zt_tone.monitor
sox -n -r 44100 -c 1 -b 16 "$dir/note.wav" synth 1.5 sine 110 vol 0 : synth 3 sine 110 vol 0.5

failed=0
for run in $(seq "$runs"); do
  "$app" --select-tab 1 --probe 10 --quit-after 7 >"$dir/probe.jsonl" 2>/dev/null &
  running=$!
  # Start the note once the tuner listens.
  for _ in $(seq 200); do
    grep -q '"polling":true' "$dir/probe.jsonl" 2>/dev/null && break
    sleep 0.05
  done
  sleep 0.5
  start=$(date +%s%3N)
  paplay --latency-msec=50 --device=zt_tone "$dir/note.wav"
  wait "$running"
  python3 - "$dir/probe.jsonl" "$((start + 1500))" <<'PY' || failed=1
import json, sys
onset = int(sys.argv[2])
frames = []
for line in open(sys.argv[1]):
    j = json.loads(line)
    p, d = j.get("properties", {}), j.get("drawn", {})
    ok = p.get("activeSlot") == 1 and p.get("frequencyText") and abs(d.get("needle", 99)) <= 1.0
    if j["epochMs"] >= onset:
        frames.append((j["epochMs"], ok))
# Settled: right from then on for half a second.
settled = next((t for t, ok in frames
                if all(k for u, k in frames if t <= u <= t + 500)), None)
print("settled %d ms after the onset" % (settled - onset) if settled else "never settled")
sys.exit(0 if settled else 1)
PY
done
exit "$failed"
