#!/usr/bin/env bash
# Runs every fuzz target of build/fuzz, FUZZ_JOBS at a time (default 1), in
# one of two modes:
# - search (default): each target for FUZZ_SECONDS (default 300) with a fresh
#   random seed. Seeds come from fuzz/corpus/<target>/, which is only read;
#   what a run learns goes to build/fuzz/corpus/<target>/ and is fed back on
#   the next run. This is how new faults are found.
# - replay (FUZZ_MODE=replay): the repository's seeds are replayed, then each
#   target makes a fixed number of inputs (its row below, about 20 s on an
#   idle machine, or FUZZ_RUNS for all) from a fixed seed, starting from the
#   seeds alone. The same commit gives the same inputs every time, so a red result
#   is caused by the change under test, never by luck (CI).
# Any crash goes to build/fuzz/crashes/. Exits non-zero when a target fails.
set -euo pipefail
cd "$(dirname "$0")/.."

seconds="${FUZZ_SECONDS:-300}"
mode="${FUZZ_MODE:-search}"
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

# Inputs each target makes in replay mode.
runs_for() {
  [ -n "${FUZZ_RUNS:-}" ] && { echo "$FUZZ_RUNS"; return; }
  case $1 in
    audio_file) echo 2000 ;;
    state_file) echo 3000 ;;
    cli) echo 4000 ;;
    presets) echo 15000 ;;
    tunings) echo 20000 ;;
    chord_names) echo 100000 ;;
  esac
}

run_one() {
  local target=$1
  local opts
  opts=$(options_for "$target")
  local learned="$out/corpus/$target" budget="-max_total_time=$seconds"
  if [ "$mode" = replay ]; then
    # A scratch folder for what the run learns, so that nothing from an
    # earlier run changes the inputs.
    learned=$(mktemp -d "$out/replay-$target-XXXXXX")
    budget="-runs=$(runs_for "$target") -seed=1"
  fi
  mkdir -p "$learned" "$out/crashes"
  local log="$out/$target.log"
  local start=$SECONDS status=0
  # shellcheck disable=SC2086
  "$bin/fuzz_$target" $opts $budget -timeout=25 -print_final_stats=1 \
    -artifact_prefix="$out/crashes/$target-" "$learned" "$root/fuzz/corpus/$target" \
    >"$log" 2>&1 || status=$?
  if [ "$mode" = replay ]; then rm -rf "$learned"; fi
  if [ "$status" -eq 0 ]; then
    echo "fuzz_$target: $(grep -o 'stat::number_of_executed_units: *[0-9]*' "$log" | grep -o '[0-9]*$') runs in $((SECONDS - start)) s, no crash"
  else
    echo "fuzz_$target FAILED (log: $log):"
    grep -A30 -m1 'ERROR\|runtime error\|deadly signal' "$log" || tail -30 "$log"
    return 1
  fi
}
export -f run_one options_for runs_for
export seconds mode bin out root

printf '%s\n' "${targets[@]}" | xargs -P "$jobs" -I{} bash -c 'run_one {}'
