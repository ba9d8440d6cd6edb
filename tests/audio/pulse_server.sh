# Sourced by the tests that hear sound through a real capture device: a
# PulseAudio server of the test's own (its own runtime folder and socket)
# with a null sink "zt_tone"; whatever is played into the sink is heard from
# its monitor. Sets `dir` (removed at exit), `pids` (killed at exit) and,
# once start_server has run, `server`. The caller defines skip().

dir=$(mktemp -d /tmp/zt-pulse-XXXXXX)
mkdir -p "$dir/run" "$dir/home"
chmod 700 "$dir/run"
export HOME="$dir/home" XDG_RUNTIME_DIR="$dir/run" XDG_CONFIG_HOME="$dir/home/.config"
export PULSE_RUNTIME_PATH="$dir/run/pulse" PULSE_STATE_PATH="$dir/state"
export PULSE_SERVER="unix:$dir/native" ALSOFT_DRIVERS=pulse
pids=()
cleanup() {
  for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null; wait "$pid" 2>/dev/null; done
  rm -rf "$dir"
}
trap cleanup EXIT

start_server() {
  # Root (as in CI) may run a user server; it only warns.
  pulseaudio -n --daemonize=no --exit-idle-time=-1 --use-pid-file=no --disable-shm=yes \
    -L "module-native-protocol-unix socket=$dir/native auth-anonymous=1" \
    -L "module-null-sink sink_name=zt_tone rate=44100" \
    --log-target=file:"$dir/pulse.log" &
  server=$!
  pids+=("$server")
  for _ in $(seq 100); do
    pactl info >/dev/null 2>&1 && return 0
    kill -0 "$server" 2>/dev/null || break
    sleep 0.1
  done
  skip "PulseAudio cannot run here: $(tail -n 3 "$dir/pulse.log" 2>/dev/null | tr '\n' ' ')"
}
