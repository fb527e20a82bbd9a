#!/usr/bin/env bash
# Starts the team: players 1 (goalkeeper), 2 (defender) and 3 (attacker) against the server at
# host:port (default 127.0.0.1 3100), half a second apart, each in its own run directory
# ./run/playerN/ that shares ./Data and has its own ./LogFiles. ./kill.sh stops them.
#
# When no server answers on host:port, replays the recording shipped in Data/Replays/ offline
# instead and prints a summary of that replay.
#
# Installs missing packages and builds the player first.
set -euo pipefail
cd "$(dirname "$0")"
root=$(pwd)
host=${1:-127.0.0.1}
port=${2:-3100}
recording=Data/Replays/real-session-3200.txt

scripts/install-deps.sh
if [ ! -f build/CMakeCache.txt ]; then
  cmake -S . -B build -DCMAKE_BUILD_TYPE=Release -DKORVEL_TESTS=OFF >/dev/null
fi
cmake --build build -j"${JOBS:-2}" --target korvel >/dev/null
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

mkdir -p run
pids=run/players.pids
: >"$pids"
for number in 1 2 3; do
  dir=run/player$number
  prepare "$dir"
  (cd "$dir" && exec "$player" --number "$number" --host "$host" --port "$port" \
    >console.log 2>&1) &
  echo $! >>"$pids"
  echo "Player $number (pid $!): logs in $root/$dir/LogFiles/, console in $root/$dir/console.log"
  # The server freezes when players connect at the same moment.
  sleep 0.5
done
echo "Stop the team with ./kill.sh"
