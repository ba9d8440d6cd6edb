#!/usr/bin/env bash
# The chromatic tuner in the real app, without a display, listening to a
# real capture device: a PulseAudio server of the test's own with a null
# sink whose monitor is the default source, fed with tones. The app reports
# what it shows through --probe (one JSON line per reading of the screen);
# the checks read those values, and a picture of each case is kept.
#   1. A2 (110 Hz): "A" lit, "110.0 Hz", the needle at the centre, and one
#      value of cents on every reading.
#   2. A2 + 30 cents: the needle right of the centre, "+30.0 ¢".
#   2b. The tone stops: a second later the dial is at rest and blank.
#   3. The device goes away while listening: the microphone alert opens.
#   4. No capture device at all: the alert with its exact text.
# Usage: chromatic_tuner_e2e.sh ZEBTOOLS DEFAULT_STATE [PICTURE_DIR]
# Exit 77 (skipped) only where PulseAudio cannot run.
set -uo pipefail
app="$1"
defaults="$2"
pictures="${3:-}"

skip() { echo "SKIPPED: $*"; exit 77; }
fail() { echo "FAILED: $*"; exit 1; }
for tool in pulseaudio pactl paplay sox python3; do
  command -v "$tool" >/dev/null || skip "$tool is not installed"
done

# shellcheck source=../audio/pulse_server.sh
source "$(dirname "$0")/../audio/pulse_server.sh"
mkdir -p "$dir/data"
export QT_QPA_PLATFORM=offscreen ZEBTOOLS_DATA_DIR="$dir/data"

# Plays a tone of $1 Hz into the null sink until stopped.
play() {
  sox -n -r 44100 -c 1 -b 16 "$dir/tone.wav" synth 60 sine "$1" vol 0.5 || fail "sox"
  paplay --latency-msec=50 --device=zt_tone "$dir/tone.wav" &
  player=$!
  pids+=("$player")
  sleep 0.5
}

# Runs the app on the chromatic tab for $1 seconds; probe lines in $2.jsonl,
# its picture in $2.png.
run_app() {
  cp "$defaults" "$ZEBTOOLS_DATA_DIR/saveState.plist"
  timeout 60 "$app" --select-tab 1 --probe 100 --quit-after "$1" --grab "$dir/$2.png" \
    >"$dir/$2.jsonl" 2>"$dir/$2.log" || fail "$2: the app exited with $?: $(tail -5 "$dir/$2.log")"
  grep -q '"screen":"tunerChromatic"' "$dir/$2.jsonl" || fail "$2: the tuner was not on show"
  [ -s "$dir/$2.png" ] || fail "$2: no picture"
  [ -n "$pictures" ] && cp "$dir/$2.png" "$pictures/"
  return 0
}

# Checks the last probe line of $1 with the Python expression $2 (p: the
# screen's properties, d: what the view draws).
check() {
  python3 - "$dir/$1.jsonl" "$2" <<'PY' || fail "$1: $2"
import json, sys
lines = [json.loads(l) for l in open(sys.argv[1]) if l.startswith("{")]
last = lines[-1]
p, d = last.get("properties", {}), last.get("drawn", {})
if not eval(sys.argv[2]):
    p.pop("scaleTicks", None)
    print(json.dumps(last))
    sys.exit(1)
PY
}

start_server
pactl set-default-source zt_tone.monitor || fail "no monitor source"

play 110
run_app 3 a2
check a2 'p["frequencyText"] == "110.0 Hz" and p["activeSlot"] == 1 and p["slotLetters"][1] == "A"'
# The centre: within 2 cents (0.0173 rad, 1 degree) as the sink's resampling
# may put a reading a cent off.
check a2 'abs(p["needleAngle"]) <= 0.0174 and abs(d["needle"]) <= 1.0 and p["frequencyAmber"]'
check a2 'not p["microphoneAlert"] and p["polling"]'
python3 - "$dir/a2.jsonl" <<'PY' || fail "a2: a steady tone reads more than one value"
import json, sys
lines = [json.loads(l).get("properties", {}) for l in open(sys.argv[1]) if l.startswith("{")]
sequence = [p.get("centsText") for p in lines if p.get("frequencyText")]
# The first block of a session may begin with the capture's own start.
shown = set(sequence[1:])
print("cents shown:", " ".join(sequence))
sys.exit(0 if len(sequence) >= 10 and len(shown) == 1 and "" not in shown else 1)
PY
echo "ok: 110 Hz shows A, 110.0 Hz, the needle at the centre, one value of cents"
kill "$player"; wait "$player" 2>/dev/null

# 110 Hz x 2^(30/1200)
play 111.9171
run_app 3 a2-sharp
check a2-sharp 'p["frequencyText"] == "111.9 Hz" and p["activeSlot"] == 1'
check a2-sharp 'p["needleAngle"] > 0.15 and d["needle"] > 8'
check a2-sharp 'abs(float(p["centsText"].split()[0]) - 30.0) <= 0.1 + 1e-9 and p["centsText"].endswith("\u00a2")'
echo "ok: 30 cents sharp turns the needle right and reads +30.0 cents"
kill "$player"; wait "$player" 2>/dev/null

# The tone stops under the running tuner: held for a second at most, then
# the needle back at the centre, the labels blank and no string lit.
play 110
"$app" --select-tab 1 --probe 100 --quit-after 8 >"$dir/silence.jsonl" 2>"$dir/silence.log" &
running=$!
pids+=("$running")
for _ in $(seq 60); do
  grep -q '"frequencyText":"110.0 Hz"' "$dir/silence.jsonl" && break
  sleep 0.1
done
grep -q '"frequencyText":"110.0 Hz"' "$dir/silence.jsonl" || fail "silence: the tone was never read"
kill "$player"; wait "$player" 2>/dev/null
stopped=$(date +%s.%N)
wait "$running" || fail "silence: the app exited with $?: $(tail -5 "$dir/silence.log")"
awk -v s="$stopped" -v e="$(date +%s.%N)" 'BEGIN { exit !(e - s >= 1.6) }' ||
  fail "silence: the app quit too soon after the tone stopped to tell"
check silence 'p["frequencyText"] == "" and p["centsText"] == "" and p["activeSlot"] == -1'
check silence 'p["referenceTexts"] == [""] * 5 and p["needleAngle"] == 0 and abs(d["needle"]) < 1e-6'
echo "ok: when the tone stops the dial comes to rest, blank"

play 111.9171

# The device goes away under the running tuner.
"$app" --select-tab 1 --probe 100 --quit-after 8 >"$dir/lost.jsonl" 2>"$dir/lost.log" &
running=$!
for _ in $(seq 150); do
  grep -q '"frequencyText":"111.9 Hz"' "$dir/lost.jsonl" && break
  sleep 0.1
done
grep -q "\"frequencyText\":\"111.9 Hz\"" "$dir/lost.jsonl" || fail "lost: the tone was never read: $(tail -c 600 "$dir/lost.jsonl") $(tail -5 "$dir/lost.log")"
kill "$server"; wait "$server" 2>/dev/null
wait "$running" || fail "lost: the app exited with $?: $(tail -5 "$dir/lost.log")"
check lost 'p["microphoneAlert"] and d["alert"] and not p["polling"] and d["needle"] == 0'
echo "ok: a device that goes away opens the alert"

# No capture device at all: openal-soft's wave backend plays but cannot record.
export ALSOFT_DRIVERS=wave ALSOFT_CONF="$dir/alsoft.conf"
printf '[wave]\nfile = %s\n' "$dir/out.wav" >"$ALSOFT_CONF"
run_app 2 no-device
check no-device 'p["microphoneAlert"] and d["alert"] and p["alertTitle"] == "Microphone Required"'
check no-device 'p["alertMessage"].startswith("The chromatic tuner requires a microphone to work.")'
check no-device 'p["alertButton"] == "Ok" and not p["polling"]'
echo "ok: no capture device opens the alert"
echo "chromatic tuner through PulseAudio: all good"
