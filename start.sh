#!/usr/bin/env bash
# Builds the player (release) and starts it from the repo root, where its Data tree lives.
set -euo pipefail
cd "$(dirname "$0")"
scripts/install-deps.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=Release -DKORVEL_TESTS=OFF >/dev/null
cmake --build build -j"${JOBS:-2}" --target korvel
exec build/korvel "$@"
