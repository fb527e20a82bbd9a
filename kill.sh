#!/usr/bin/env bash
# Stops the players that ./start.sh started, by the process ids it wrote to run/players.pids
# (and, for teams started under a name of their own, run/NAME/players.pids). A pid that no longer
# belongs to one of our players (it ended, or the number was reused) is left alone.
set -euo pipefail
cd "$(dirname "$0")"
lists=()
for list in run/players.pids run/*/players.pids; do
  if [ -f "$list" ]; then lists+=("$list"); fi
done
if [ ${#lists[@]} -eq 0 ]; then
  echo "No players started by ./start.sh are running."
  exit 0
fi
player=$(pwd)/build/korvel
for pids in "${lists[@]}"; do
  while read -r pid; do
    [ -n "$pid" ] || continue
    exe=$(readlink "/proc/$pid/exe" 2>/dev/null || true)
    # A binary rebuilt while the player runs shows as "<path> (deleted)".
    if [ "$exe" = "$player" ] || [ "$exe" = "$player (deleted)" ]; then
      kill "$pid" && echo "Stopped player pid $pid"
    else
      echo "Pid $pid is not running a player any more"
    fi
  done <"$pids"
  rm -f "$pids"
done
