#!/usr/bin/env bash
# Starts the team: players 1 (goalkeeper), 2 (defender) and 3 (attacker) against the server at
# host:port (default 127.0.0.1 3100), half a second apart, each in its own run directory
# ./run/playerN/ that shares ./Data and has its own ./LogFiles. ./kill.sh stops them.
#
#   ./start.sh [--team NAME | --versus NAME] [host [port]]
#
# --team NAME starts the team under that name instead, in ./run/NAME/playerN/: started after
# another team, it plays on the right (the server gives the second team name the right half).
# --versus NAME starts the Korvel team and then a second team NAME against it: a whole game.
#
# When no server answers on host:port, replays the recording shipped in Data/Replays/ offline
# instead and prints a summary of that replay.
#
# Installs missing packages and builds the player first.
set -euo pipefail
cd "$(dirname "$0")"
root=$(pwd)

usage() {
  echo "Usage: ./start.sh [--team NAME | --versus NAME] [host [port]]" >&2
  exit 2
}

team=""
versus=""
case "${1:-}" in
  --team | --versus)
    [ $# -ge 2 ] || usage
    # A team name is one word; it also names the team's run directory.
    [[ $2 =~ ^[A-Za-z0-9_-]+$ && $2 != replay ]] || {
      echo "A team name is letters, digits, '_' and '-' (and not 'replay'): '$2'" >&2
      exit 2
    }
    if [ "$1" = --team ]; then team=$2; else versus=$2; fi
    shift 2
    ;;
  -*) usage ;;
esac
host=${1:-127.0.0.1}
port=${2:-3100}
recording=Data/Replays/real-session-3200.txt

scripts/install-deps.sh
if [ ! -f build/CMakeCache.txt ]; then
  cmake -S . -B build -DCMAKE_BUILD_TYPE=Release -DKORVEL_TESTS=OFF >/dev/null
fi
cmake --build build -j"${JOBS:-2}" --target korvel korvel-track >/dev/null
player="$root/build/korvel"

# A run directory: the shared data tree through a link, the logs of its own.
prepare() {
  local dir=$1
  rm -rf "$dir"
  mkdir -p "$dir/LogFiles"
  ln -s "$root/Data" "$dir/Data"
}

server_answers() {
  timeout 2 bash -c "exec 3<>/dev/tcp/$host/$port" 2>/dev/null
}

if ! server_answers; then
  echo "No server answers on $host:$port; replaying the shipped recording offline instead."
  dir=run/replay
  prepare "$dir"
  cp "$recording" "$dir/LogFiles/Korvel-1.log.offline"
  (cd "$dir" && "$player" --offline --number 3 >console.log 2>&1)
  log="$dir/LogFiles/Korvel-1.log"
  turns=$(grep -c 'last pos 5 : ' "$log" || true)
  acting=$(grep -c "AgentModel:[0-9]* 'acting turn" "$log" || true)
  effectors=$(grep -c 'Message : : : ' "$log" || true)
  echo "Replayed $recording: $turns turns played, $acting acting turns, $effectors effector messages logged."
  echo "Log: $root/$log (console output: $root/$dir/console.log)"
  exit 0
fi

# Starts one team: the players of team $1 (empty: the Korvel team as registered by default) in
# the run directories under $2, their pids in $2/players.pids.
start_team() {
  local name=$1 base=$2
  local -a named=()
  [ -z "$name" ] || named=(--team "$name")
  mkdir -p "$base"
  local pids=$base/players.pids
  : >"$pids"
  for number in 1 2 3; do
    dir=$base/player$number
    prepare "$dir"
    (cd "$dir" && exec "$player" --number "$number" --host "$host" --port "$port" "${named[@]}" \
      >console.log 2>&1) &
    echo $! >>"$pids"
    echo "Player $number (pid $!): logs in $root/$dir/LogFiles/, console in $root/$dir/console.log"
    # The server freezes when players connect at the same moment.
    sleep 0.5
  done
}

if [ -n "$team" ]; then
  start_team "$team" "run/$team"
  echo "Stop the teams with ./kill.sh"
  exit 0
fi
start_team "" run
if [ -n "$versus" ]; then
  start_team "$versus" "run/$versus"
  echo "Stop the teams with ./kill.sh"
  exit 0
fi
echo "Stop the team with ./kill.sh"
