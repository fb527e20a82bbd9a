#!/usr/bin/env bash
# Builds the player and its tests with AddressSanitizer and UndefinedBehaviorSanitizer and runs
# every test. Installs missing Debian packages first (as root).
set -euo pipefail
cd "$(dirname "$0")"
scripts/install-deps.sh
jobs=${JOBS:-2}
cmake -S . -B build-asan -DCMAKE_BUILD_TYPE=Debug -DKORVEL_SANITIZE=ON -DKORVEL_TESTS=ON >/dev/null
cmake --build build-asan -j"$jobs"
ctest --test-dir build-asan --output-on-failure -j"$jobs"
# The shipped skill files must load and keep every target within the robot's joint ranges.
build-asan/korvel-check Data
# Arbitrary bytes into the message parser and the world model for a bounded time (clang build).
fuzz/run.sh
scripts/test-ratio.sh
