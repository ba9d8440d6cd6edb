#!/usr/bin/env bash
# Runs every fuzz target of build/fuzz for FUZZ_SECONDS each (default 300),
# FUZZ_JOBS at a time (default 1). Seeds come from fuzz/corpus/<target>/,
# which is only read; what a run learns goes to build/fuzz/corpus/<target>/
# and any crash to build/fuzz/crashes/. Exits non-zero when a target fails.
set -euo pipefail
cd "$(dirname "$0")/.."

seconds="${FUZZ_SECONDS:-300}"
jobs="${FUZZ_JOBS:-1}"
root=$(pwd)
bin=$root/build/fuzz/fuzz
out=$root/build/fuzz
# Leaks inside libraries we do not own (libsndfile's codecs) are listed there.
export LSAN_OPTIONS="suppressions=$root/tools/sanitizers/lsan.supp:print_suppressions=0"

targets=(audio_file chord_names cli presets state_file tunings)

# Each target's own libFuzzer options. The length limits of the plist targets
# keep them off the known deep-nesting fault of the state files (see
# docs/fuzzing.md).
options_for() {
  case $1 in
    state_file | presets) echo "-max_len=4096" ;;
    cli) echo "-max_len=256 -dict=$root/fuzz/cli.dict" ;;
    chord_names) echo "-max_len=64" ;;
    tunings) echo "-max_len=128" ;;
    audio_file) echo "-max_len=16384" ;;
  esac
}

run_one() {
  local target=$1
  local opts
  opts=$(options_for "$target")
  mkdir -p "$out/corpus/$target" "$out/crashes"
  local log="$out/$target.log"
  local start=$SECONDS
  # shellcheck disable=SC2086
  if "$bin/fuzz_$target" $opts -max_total_time="$seconds" -timeout=25 -print_final_stats=1 \
      -artifact_prefix="$out/crashes/$target-" "$out/corpus/$target" "$root/fuzz/corpus/$target" \
      >"$log" 2>&1; then
    echo "fuzz_$target: $(grep -o 'stat::number_of_executed_units: *[0-9]*' "$log" | grep -o '[0-9]*$') runs in $((SECONDS - start)) s, no crash"
  else
    echo "fuzz_$target FAILED (log: $log):"
    grep -A30 -m1 'ERROR\|runtime error\|deadly signal' "$log" || tail -30 "$log"
    return 1
  fi
}
export -f run_one options_for
export seconds bin out root

printf '%s\n' "${targets[@]}" | xargs -P "$jobs" -I{} bash -c 'run_one {}'
