#!/usr/bin/env bash
# zebtools-cli analyze --mic through a real capture device: a PulseAudio
# server of the test's own (its own runtime folder and socket) with a null
# sink; a tone played into the sink is heard from the sink's monitor through
# openal-soft. Then the server goes away under a running capture, and a
# capture is asked of a server that is not there.
# Exit 77 (skipped) only where PulseAudio cannot run.
set -uo pipefail
cli="$1"
hertz=196.0  # G3

skip() { echo "SKIPPED: $*"; exit 77; }
fail() { echo "FAILED: $*"; exit 1; }
for tool in pulseaudio pactl paplay sox; do
  command -v "$tool" >/dev/null || skip "$tool is not installed"
done

# shellcheck source=../audio/pulse_server.sh
source "$(dirname "$0")/../audio/pulse_server.sh"

start_server
pactl set-default-source zt_tone.monitor || fail "no monitor source"
sox -n -r 44100 -c 1 -b 16 "$dir/tone.wav" synth 30 sine "$hertz" vol 0.5 || fail "sox"
# A short latency: the null sink renders in blocks as long as its clients
# allow, and its monitor hands them on only when each is done.
paplay --latency-msec=50 --device=zt_tone "$dir/tone.wav" 2>"$dir/paplay.txt" &
pids+=($!)
sleep 0.5

# 1. The tone, within 1 cent, on every reading once the first has come.
"$cli" analyze --mic --seconds 3 --all-notes --json >"$dir/readings.txt" 2>"$dir/errors.txt" ||
  fail "analyze --mic exited with $?: $(cat "$dir/errors.txt")"
readings=$(grep -c '"frequency"' "$dir/readings.txt")
[ "$readings" -ge 20 ] || fail "only $readings readings in 3 s: $(head -c 400 "$dir/readings.txt")"
awk -v hertz="$hertz" '
  {
    match($0, /"frequency":-?[0-9.]+/); f = substr($0, RSTART + 12, RLENGTH - 12)
    if (f <= 0) { if (seen) bad = bad "\n" $0; next }
    seen = 1
    cents = 1200 * log(f / hertz) / log(2)
    if (cents > 1 || cents < -1 || $0 !~ /"note":"G","octave":3/) bad = bad "\n" $0
    if (cents < 0) cents = -cents
    if (cents > worst) worst = cents
  }
  END {
    if (!seen) { print "no pitch at all"; exit 1 }
    if (bad != "") { print "readings off:" bad; exit 1 }
    printf "%d readings, worst %.3f cents\n", NR, worst
  }' "$dir/readings.txt" || fail "the tone was not read within 1 cent"

# 1b. A steady tone reads one value, live as from the file of it.
cents_of() { grep -o '"cents":-\?[0-9][0-9.]*' "$1" | sort -u | tr '\n' ' '; }
"$cli" analyze "$dir/tone.wav" --all-notes --json >"$dir/file.txt" || fail "the file"
live=$(cents_of "$dir/readings.txt")
from_file=$(cents_of "$dir/file.txt")
[ "$live" = "$from_file" ] && [ "$(echo "$live" | wc -w)" -eq 1 ] ||
  fail "cents live: $live; from the file: $from_file"
echo "live and file read ${live}alike"

# 1c. Every block once, in order: the times step by 0.05 s, even when the
# reader is held up for 1.5 s (it catches up on what was captured meanwhile).
"$cli" analyze --mic --seconds 4 --raw >"$dir/raw.txt" 2>"$dir/raw-errors.txt" &
reader=$!
pids+=("$reader")
sleep 1
kill -STOP "$reader"; sleep 1.5; kill -CONT "$reader"
wait "$reader" || fail "analyze --mic --raw exited with $?: $(cat "$dir/raw-errors.txt")"
awk 'NR > 1 && ($1 - last > 0.0505 || $1 - last < 0.0495) { bad = bad "\n" last " -> " $1 }
  { last = $1 }
  END {
    if (bad != "") { print "times skip or repeat:" bad; exit 1 }
    if (NR != 76) { print NR " lines for 4 s, not 76"; exit 1 }
  }' "$dir/raw.txt" || fail "the blocks of --raw --mic"
echo "76 blocks in 4 s, each once"

# 2. Plain lines when the output is no terminal: time, frequency, note...
"$cli" analyze --mic --seconds 1 --all-notes >"$dir/lines.txt" 2>&1 || fail "plain lines"
grep -q '^[0-9.]* 196\.0 G3 ' "$dir/lines.txt" || fail "plain lines: $(head -n 3 "$dir/lines.txt")"

# 3. The device goes away while listening: the capture ends, exit 1.
"$cli" analyze --mic --seconds 20 --raw >"$dir/lost.txt" 2>"$dir/lost-errors.txt" &
capture=$!
pids+=("$capture")
sleep 1.5
kill "$server"
wait "$server" 2>/dev/null
for _ in $(seq 100); do kill -0 "$capture" 2>/dev/null || break; sleep 0.1; done
kill -0 "$capture" 2>/dev/null && fail "analyze --mic still runs 10 s after its device went away"
wait "$capture"
code=$?
[ "$code" -eq 1 ] || fail "exit $code when the device went away: $(cat "$dir/lost-errors.txt")"
grep -q "the microphone went away" "$dir/lost-errors.txt" || fail "$(cat "$dir/lost-errors.txt")"
grep -q '^[0-9.]* 196\.' "$dir/lost.txt" || fail "nothing was read before: $(head -c 300 "$dir/lost.txt")"

# 4. No device at all.
"$cli" analyze --mic --seconds 1 >"$dir/none.txt" 2>&1
code=$?
[ "$code" -eq 1 ] || fail "exit $code without a device"
grep -q "no capture device can be opened" "$dir/none.txt" || fail "$(cat "$dir/none.txt")"
echo "microphone capture through PulseAudio: all good"
