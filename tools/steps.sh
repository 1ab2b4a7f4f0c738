# Sourced by the commands of the house: what each of them says and how it builds.
# A command says little: one line a step, the log's end and one line where a step fails.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"

export HOME=${HOME:-/tmp}
mkdir -p build/logs

say() { printf '%s\n' "$*" >&2; }

fail() {
  say "${0##*/}: $*"
  exit 1
}

# quietly NAME COMMAND...: keeps the output in build/logs/NAME.log and shows its end only when the command fails.
quietly() {
  local log=build/logs/$1.log
  shift
  "$@" >"$log" 2>&1 </dev/null && return
  local code=$?
  tail -n 40 "$log" >&2
  return "$code"
}

# bounded SECONDS COMMAND...: as timeout does, but Ctrl-C ends it, too.
trap 'exit 130' INT
bounded() {
  timeout "$@" &
  local running=$! code=0
  trap 'kill "$running" 2>/dev/null; exit 130' INT TERM
  wait "$running" || code=$?
  trap 'exit 130' INT
  trap - TERM
  return "$code"
}

# build_preset PRESET [TARGET...]: configures and builds; ninja shows its progress on a terminal, elsewhere errors only.
build_preset() {
  local preset=$1 start=$SECONDS quiet=--quiet
  shift
  quietly "configure-$preset" cmake --preset "$preset" ||
    fail "configuring '$preset' failed (whole output: build/logs/configure-$preset.log)"
  [ -t 2 ] && quiet=
  say "building $preset ..."
  # One build at a time in a folder.
  flock "build/$preset.lock" ninja -C "build/$preset" $quiet "$@" >&2 </dev/null || fail "building '$preset' failed: see the first error above"
  say "built $preset in $((SECONDS - start)) s"
}
