#!/usr/bin/env bash
# Installs the build into a temporary prefix and runs both programs from
# there, from another working directory and with no ZebTools variables, as a
# user of the installed app would. Also validates the launcher entry and the
# AppStream description, and checks the man pages and shell completion.
set -euo pipefail
build="$1"

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAIL: $*"; [ -f "$work/log" ] && cat "$work/log"; exit 1; }

prefix="$work/prefix"
cmake --install "$build" --prefix "$prefix" > "$work/log" 2>&1 || fail "install failed"
share="$prefix/share"

unset ZEBTOOLS_RESOURCE_DIR ZEBTOOLS_DATA_DIR
export HOME="$work/home" XDG_DATA_HOME="$work/home/.local/share"
export QT_QPA_PLATFORM=offscreen ALSOFT_DRIVERS=null
mkdir -p "$HOME"
cd "$work"

"$prefix/bin/zebtools-cli" --version | grep -q "^zebtools-cli [0-9]" || fail "zebtools-cli --version"
"$prefix/bin/zebtools" --version | grep -q "^zebtools [0-9]" || fail "zebtools --version"
echo "ok: both programs report their version"

# The sounds come from the prefix: with one of them gone there, the render fails.
"$prefix/bin/zebtools-cli" metronome --seconds 1 --out "$work/click.wav" > "$work/log" 2>&1 ||
    fail "metronome render from the prefix"
[ -s "$work/click.wav" ] || fail "no click track written"
mv "$share/zebtools/sounds/1_tick.caf" "$work/"
if "$prefix/bin/zebtools-cli" metronome --seconds 1 --out "$work/click2.wav" > "$work/log" 2>&1; then
    fail "the render did not read its sounds from the prefix"
fi
mv "$work/1_tick.caf" "$share/zebtools/sounds/"
echo "ok: zebtools-cli reads its sounds from the prefix"

# The default state comes from the prefix: a changed default tab shows in the
# new user's state file.
perl -0pi -e 's#(<key>SelectedViewController</key>\s*<integer>)\d+#${1}2#' \
    "$share/zebtools/saveState.plist"
timeout 60 "$prefix/bin/zebtools" --quit-when-loaded > "$work/log" 2>&1 || fail "app exited with $?"
state=$(find "$XDG_DATA_HOME" -name saveState.plist | head -n 1)
[ -n "$state" ] || fail "no state file in the user's data folder"
perl -0ne 'exit(/<key>SelectedViewController<\/key>\s*<integer>2</ ? 0 : 1)' "$state" ||
    fail "the default state did not come from the prefix"
timeout 90 "$prefix/bin/zebtools" --screenshot "$work/shots" > "$work/log" 2>&1 || fail "screenshots"
[ -s "$work/shots/metronome.png" ] || fail "no screenshot"
echo "ok: the app starts from the prefix on its default state and renders"

desktop-file-validate "$share/applications/org.zebtools.ZebTools.desktop" || fail "desktop entry"
appstreamcli validate --no-net --pedantic "$share/metainfo/org.zebtools.ZebTools.metainfo.xml" \
    > "$work/log" 2>&1 || fail "metainfo"
for size in 16 32 48 128 256; do
    [ -s "$share/icons/hicolor/${size}x${size}/apps/org.zebtools.ZebTools.png" ] || fail "icon $size"
done
[ -s "$share/icons/hicolor/scalable/apps/org.zebtools.ZebTools.svg" ] || fail "scalable icon"
echo "ok: launcher entry, metainfo and icons"

for page in zebtools zebtools-cli; do
    man -l "$share/man/man1/$page.1" 2>/dev/null | grep -q -- "--version" || fail "man page $page"
done
man -l "$share/man/man1/zebtools-cli.1" 2>/dev/null | grep -q -- "--bpm" ||
    fail "the man page lacks the metronome command's options"
# shellcheck disable=SC1091
source "$share/bash-completion/completions/zebtools-cli"
COMP_WORDS=("$prefix/bin/zebtools-cli" "met"); COMP_CWORD=1; _zebtools_cli
[ "${COMPREPLY[*]}" = metronome ] || fail "completion of a command: ${COMPREPLY[*]}"
COMP_WORDS=("$prefix/bin/zebtools-cli" metronome "--sig"); COMP_CWORD=2; _zebtools_cli
[ "${COMPREPLY[*]}" = --signature ] || fail "completion of an option: ${COMPREPLY[*]}"
echo "ok: man pages and completion"
