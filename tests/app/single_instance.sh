#!/usr/bin/env bash
# One window per desktop session: on a private session bus, a second launch
# asks the running app to raise its window and ends at once, loading nothing
# and touching no file. The "minimal" platform stands in for a display
# (runs on "offscreen" are tests and stay apart).
set -uo pipefail
app="$1"
command -v dbus-run-session >/dev/null || { echo "SKIPPED: no dbus-run-session"; exit 77; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export ZEBTOOLS_DATA_DIR="$work/data" QT_QPA_PLATFORM=minimal QT_QUICK_BACKEND=software
export ALSOFT_DRIVERS=null
mkdir -p "$ZEBTOOLS_DATA_DIR"

dbus-run-session -- bash -c '
  app="$1" work="$2"
  "$app" --verbose --quit-after 8 >"$work/first.log" 2>&1 &
  first=$!
  for _ in $(seq 150); do
    dbus-send --session --print-reply --dest=org.freedesktop.DBus /org/freedesktop/DBus \
      org.freedesktop.DBus.NameHasOwner string:org.zebtools.ZebTools 2>/dev/null |
      grep -q true && break
    sleep 0.1
  done
  timeout 20 "$app" --verbose >"$work/second.log" 2>&1
  echo $? >"$work/second.code"
  wait "$first"
  echo $? >"$work/first.code"
' _ "$app" "$work"

fail() { echo "FAIL: $*"; for f in first second; do echo "--- $f"; cat "$work/$f.log"; done; exit 1; }
[ "$(cat "$work/first.code")" = 0 ] || fail "the first launch exited with $(cat "$work/first.code")"
[ "$(cat "$work/second.code")" = 0 ] || fail "the second launch exited with $(cat "$work/second.code")"
grep -q "already running" "$work/second.log" || fail "the second launch started on its own"
grep -q "raised by another launch" "$work/first.log" || fail "the running window was not raised"
if grep -q "Buffers was loaded" "$work/second.log"; then fail "the second launch loaded the tools"; fi
echo "ok: a second launch raised the first window and ended"
