#!/usr/bin/env bash
# Every command reports output it could not write: stdout on /dev/full, a
# closed stdout, a full disk, and --out on a device that takes nothing. Each
# must exit 1 with a message, never 0 with a part of its output lost.
set -uo pipefail
cli="$1"
dir=$(mktemp -d)
trap 'umount "$dir/disk" 2>/dev/null; rm -rf "$dir"' EXIT
failures=0

# expect NAME SAYS COMMAND...: the command exits 1 and says SAYS on stderr.
expect() {
  local name="$1" says="$2"
  shift 2
  "$@" 2>"$dir/err"
  local code=$?
  if [ "$code" -ne 1 ] || ! grep -q -- "$says" "$dir/err"; then
    echo "FAILED: $name: exit $code, stderr: $(cat "$dir/err")"
    failures=$((failures + 1))
  fi
}

expect "chords to /dev/full" "cannot write the output: the disk is full" \
  sh -c '"$0" chords --all --json >/dev/full' "$cli"
expect "chords to a closed stdout" "cannot write the output" \
  sh -c '"$0" chords --all --json >&-' "$cli"
expect "help to /dev/full" "cannot write the output" sh -c '"$0" --help >/dev/full' "$cli"
expect "one chord to /dev/full" "cannot write the output" \
  sh -c '"$0" chords C >/dev/full' "$cli"
expect "metronome --out /dev/full" "cannot write /dev/full" \
  "$cli" metronome --seconds 1 --out /dev/full

# A full disk: a small file system of this test's own, where it may mount one.
mkdir -p "$dir/disk"
if unshare --mount true 2>/dev/null; then
  expect "chords to a full disk" "the disk is full" unshare --mount sh -c \
    'mount -t tmpfs -o size=16k none "$1/disk" && "$0" chords --all --json >"$1/disk/all.json"' \
    "$cli" "$dir"
else
  echo "no private mounts here: the full-disk case is left out"
fi

[ "$failures" -eq 0 ] || exit 1
echo "all output failures reported"
