#!/usr/bin/env bash
# Runs the real application without a display and checks what a user would
# see across runs: the cover lifts, the saved tab opens, the chosen tab is
# saved at quit, and each tool renders.
set -euo pipefail
app="$1"
defaults="$2"

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export QT_QPA_PLATFORM=offscreen
export ZEBTOOLS_DATA_DIR="$work/data"
export ALSOFT_DRIVERS=wave
export ALSOFT_CONF="$work/alsoft.conf"
printf '[wave]\nfile = %s\n' "$work/out.wav" > "$ALSOFT_CONF"
mkdir -p "$ZEBTOOLS_DATA_DIR"

fail() { echo "FAIL: $*"; [ -f "$work/log" ] && cat "$work/log"; exit 1; }

saved_tab() {
    perl -0ne 'print $1 if /<key>SelectedViewController<\/key>\s*<integer>(-?\d+)<\/integer>/' \
        "$ZEBTOOLS_DATA_DIR/saveState.plist"
}

# The debug lines checked below are off in a normal run; --verbose shows them.

# A saved tab of 3 opens on the chords tool, and is saved again at quit.
perl -0pe 's#(<key>SelectedViewController</key>\s*<integer>)\d+#${1}3#' "$defaults" \
    > "$ZEBTOOLS_DATA_DIR/saveState.plist"
timeout 60 "$app" --verbose --quit-when-loaded > "$work/log" 2>&1 || fail "app exited with $?"
grep -q "Buffers was loaded" "$work/log" || fail "the loading cover never lifted"
grep -q "someController = 3" "$work/log" || fail "tab 3 was not the selected tab"
if grep -q "qrc:/ZebTools" "$work/log"; then fail "the views reported QML errors"; fi
[ "$(saved_tab)" = 3 ] || fail "saved tab is $(saved_tab), expected 3"
echo "ok: saved tab 3 opens on Chords and is kept"

# Choosing a tab is recorded and saved at quit; the rest of the file stays.
timeout 60 "$app" --select-tab 1 --quit-when-loaded > "$work/log" 2>&1 || fail "app exited with $?"
[ "$(saved_tab)" = 1 ] || fail "saved tab is $(saved_tab), expected 1"
grep -q "Open_ChromaticTuner" "$ZEBTOOLS_DATA_DIR/events.log" || fail "tab change not in the event log"
grep -q "<key>MetronomeSettings</key>" "$ZEBTOOLS_DATA_DIR/saveState.plist" || fail "sections lost"
echo "ok: chosen tab saved at quit, event logged"
if grep -qE "Buffers was loaded|ALSOFT" "$work/log"; then fail "a normal run printed debug lines"; fi

# Ended by a signal (the session ending, the shell closing the app, Ctrl-C),
# the run ends as a quit does and saves what was chosen.
for signal in TERM INT HUP; do
    "$app" --verbose --select-tab 2 > "$work/log" 2>&1 &
    pid=$!
    for _ in $(seq 300); do
        grep -q "Buffers was loaded" "$work/log" && break
        sleep 0.1
    done
    sleep 0.5
    kill -s "$signal" "$pid"
    code=0
    wait "$pid" || code=$?
    [ "$code" = 0 ] || fail "SIG$signal ended the app with $code"
    [ "$(saved_tab)" = 2 ] || fail "after SIG$signal the saved tab is $(saved_tab), expected 2"
    "$app" --select-tab 1 --quit-when-loaded > "$work/log" 2>&1 || fail "app exited with $?"
done
echo "ok: a run ended by SIGTERM, SIGINT or SIGHUP saves as a quit does"

# A state file that cannot be parsed is kept aside; the app runs on defaults.
echo "not a plist" > "$ZEBTOOLS_DATA_DIR/saveState.plist"
timeout 60 "$app" --verbose --quit-when-loaded > "$work/log" 2>&1 ||
    fail "app exited with $? on a corrupt file"
ls "$ZEBTOOLS_DATA_DIR"/saveState.plist.corrupt* >/dev/null 2>&1 || fail "corrupt file not kept"
grep -q "Buffers was loaded" "$work/log" || fail "cover did not lift after a corrupt file"
echo "ok: corrupt state kept aside, defaults used"

# --help and --version need no display; nonsense in the app's own options
# ends the run at once with exit code 2 and a message.
for option in --help --version; do
    env -u QT_QPA_PLATFORM -u DISPLAY -u WAYLAND_DISPLAY "$app" "$option" > "$work/log" 2>&1 ||
        fail "$option without a display exited with $?"
    grep -q "zebtools" "$work/log" || fail "$option printed nothing useful"
done
touch "$work/a-file"
while IFS='|' read -r option value; do
    status=0
    timeout 20 "$app" "$option" "$value" --quit-when-loaded > "$work/log" 2>&1 || status=$?
    [ "$status" = 2 ] || fail "$option $value exited with $status, expected 2"
    grep -q -- "$option\|$value" "$work/log" || fail "$option $value: no message naming it"
done <<EOF2
--quit-after|nan
--quit-after|inf
--quit-after|0
--quit-after|-3
--size|20000x20000
--size|10x10
--screenshot|$work/a-file/shots
EOF2
echo "ok: help and version without a display, nonsense refused"

# Every tool renders.
timeout 90 "$app" --screenshot "$work/shots" > "$work/log" 2>&1 || fail "screenshot run exited with $?"
if grep -q "qrc:/ZebTools" "$work/log"; then fail "the views reported QML errors"; fi
for name in metronome chromatic-tuner brain-tuner chords tunings metronome-settings chords-settings; do
    [ -s "$work/shots/$name.png" ] || fail "no screenshot $name.png"
done
echo "ok: screenshots rendered"
[ ! -e "$ZEBTOOLS_DATA_DIR/window.ini" ] || fail "a run without a display wrote the window's place"

# Without the override the data folder is $HOME/.local/share/zebtools, an
# XDG_DATA_HOME that is not absolute ignored; the files of the folder earlier
# versions used, one level deeper, move up with what they hold.
home="$work/home"
old="$home/.local/share/zebtools/zebtools"
mkdir -p "$old"
perl -0pe 's#(<key>SelectedViewController</key>\s*<integer>)\d+#${1}2#' "$defaults" \
    > "$old/saveState.plist"
echo kept > "$old/notes.txt"
(cd "$work" && unset ZEBTOOLS_DATA_DIR && HOME="$home" XDG_DATA_HOME=relative \
    timeout 60 "$app" --verbose --quit-when-loaded) > "$work/log" 2>&1 || fail "app exited with $?"
grep -q "someController = 2" "$work/log" || fail "the old folder's saved tab was not read"
[ "$(cat "$home/.local/share/zebtools/notes.txt" 2>/dev/null)" = kept ] || fail "old files not moved"
[ -f "$home/.local/share/zebtools/saveState.plist" ] || fail "state not in the data folder"
[ ! -e "$old" ] && [ ! -e "$work/relative" ] || fail "files left in the old or a relative folder"
echo "ok: data folder by the XDG rules, old files moved into it"
echo "6 passed, 0 failed"
