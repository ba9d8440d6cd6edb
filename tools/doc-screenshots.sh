#!/usr/bin/env bash
# The user guide's pictures, made again from the program as it is: each tool
# and settings screen at 320x480, the chromatic tuner's practice views, the
# tunings list with tunings of the user's own and in a big window, and the
# metronome with its practice features on. The tuner hears a real capture
# device, a private PulseAudio server's null sink playing A2 eight cents
# sharp, so that its pictures show a reading rather than the alert a machine
# without a microphone gets. Without PulseAudio and sox the tuner's pictures
# show that alert.
# Usage: tools/doc-screenshots.sh [ZEBTOOLS [DIR]]
set -uo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
app="$(realpath "${1:-$root/build/default/src/zebtools}")"
out="$(realpath -m "${2:-$root/docs/screenshots}")"
mkdir -p "$out"

nopulse=0
skip() {
  echo "No PulseAudio here ($*): the tuner's pictures show the microphone alert."
  nopulse=1
}
# shellcheck source=../tests/audio/pulse_server.sh
source "$root/tests/audio/pulse_server.sh"
export QT_QPA_PLATFORM=offscreen
for tool in pulseaudio pactl paplay sox; do
  command -v "$tool" >/dev/null || skip "no $tool"
done
[ "$nopulse" = 0 ] && start_server
if [ "$nopulse" = 0 ]; then
  pactl set-default-source zt_tone.monitor
  sox -n -r 44100 -c 1 -b 16 "$dir/tone.wav" synth 600 sine 110.509 vol 0.3
  paplay --device=zt_tone "$dir/tone.wav" &
  pids+=($!)
  sleep 0.5
else
  export ALSOFT_DRIVERS=null
fi

# A fresh data folder holding the default state with the Python statements
# $2 applied to it (s: the state's sections), and, with $3, that file as the
# user's own tunings.
data() {
  local folder="$dir/data-$1"
  rm -rf "$folder"
  mkdir -p "$folder"
  python3 - "$root/data/saveState.plist" "$folder/saveState.plist" "$2" <<'PY'
import plistlib, sys
s = plistlib.load(open(sys.argv[1], "rb"))
exec(sys.argv[3])
plistlib.dump(s, open(sys.argv[2], "wb"))
PY
  [ -n "${3:-}" ] && cp "$3" "$folder/customTunings.plist"
  echo "$folder"
}

# One picture: $1 the file name, $2 the data folder, $3 the size, $4 the tab.
picture() {
  ZEBTOOLS_DATA_DIR="$2" timeout 60 "$app" --size "$3" --select-tab "$4" --quit-after 3 \
    --grab "$out/$1" >/dev/null 2>&1 || echo "failed: $1"
}

# Every tool and settings screen.
ZEBTOOLS_DATA_DIR="$(data plain pass)" timeout 120 "$app" --screenshot "$out" >/dev/null 2>&1 ||
  echo "failed: --screenshot"

# The chromatic tuner's practice views.
picture chromatic-strobe.png "$(data strobe 's["ChromaticSettings"]["StrobeView"] = True')" 320x480 1
picture chromatic-strobe-wide.png "$dir/data-strobe" 1280x800 1
picture chromatic-history.png \
  "$(data history 's["ChromaticSettings"]["PitchHistory"] = True')" 320x480 1

# The metronome with each beat set, bars muted and the trainer on.
picture metronome-practice.png "$(data practice '
m = s["MetronomeSettings"]
m.update(beatAccents="ANNS", trainerOn=True, trainerStart=80, trainerEnd=120, trainerStep=5,
         trainerBars=4, muteOn=True, mutePlayBars=3, muteSilentBars=1, timeSig1Value=4,
         BPM=80 - 20)  # the row of the tempo wheel: 20 BPM is row 0')" 320x480 0

# D with a capo at the 2nd fret (a C shape), the by-ear tuner with one at
# the 3rd, and the chords tool left-handed.
picture chords-capo.png "$(data capo '
s["ChordsSettings"].update(Capo=2, ChordName="D", chordPart1="D")')" 320x480 3
picture brain-tuner-capo.png "$(data brain-capo 's["BrainSettings"]["Capo"] = 3')" 320x480 2
picture chords-left-handed.png \
  "$(data left 's["CommonSettings"]["LeftHanded"] = True')" 320x480 3

# The tunings list with two tunings of the user's own, the second in use,
# and in a big window.
cat >"$dir/custom.plist" <<'PLIST'
<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
<dict>
	<key>tunings</key>
	<array>
		<dict><key>flats</key><false/><key>name</key><string>Low C (Sabbath)</string>
		<key>notes</key><string>C2&amp;G2&amp;C3&amp;F3&amp;A3&amp;D4</string></dict>
		<dict><key>flats</key><true/><key>name</key><string>Open Bb slide</string>
		<key>notes</key><string>A#1&amp;F2&amp;A#2&amp;D3&amp;F3&amp;A#3</string></dict>
	</array>
	<key>version</key><string>1.0</string>
</dict>
</plist>
PLIST
yours="$(data yours 's["CommonSettings"]["CustomTuning"] = "Open Bb slide"' "$dir/custom.plist")"
mkdir -p "$dir/yours-shots" "$dir/wide-shots"
ZEBTOOLS_DATA_DIR="$yours" timeout 120 "$app" --screenshot "$dir/yours-shots" >/dev/null 2>&1
cp "$dir/yours-shots/tunings.png" "$out/tunings-yours.png" || echo "failed: tunings-yours.png"
ZEBTOOLS_DATA_DIR="$(data wide pass)" timeout 120 "$app" --size 1280x800 \
  --screenshot "$dir/wide-shots" >/dev/null 2>&1
cp "$dir/wide-shots/tunings.png" "$out/tunings-wide.png" || echo "failed: tunings-wide.png"
echo "Pictures in $out"
