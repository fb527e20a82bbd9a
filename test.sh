#!/usr/bin/env bash
# Builds the player and its tests with AddressSanitizer and UndefinedBehaviorSanitizer and runs
# every test, then the same in Release, clang-tidy on every source and a bounded fuzz run.
# Installs missing Debian packages first (as root).
set -euo pipefail
cd "$(dirname "$0")"
scripts/install-deps.sh
jobs=${JOBS:-2}
cmake -S . -B build-asan -DCMAKE_BUILD_TYPE=Debug -DKORVEL_SANITIZE=ON -DKORVEL_TESTS=ON >/dev/null
cmake --build build-asan -j"$jobs"
ctest --test-dir build-asan --output-on-failure -j"$jobs"
# The optimised build has warnings of its own (GCC's inliner): build and test it as well.
cmake -S . -B build-release -DCMAKE_BUILD_TYPE=Release -DKORVEL_TESTS=ON >/dev/null
cmake --build build-release -j"$jobs"
ctest --test-dir build-release --output-on-failure -j"$jobs"
# Static analysis with the repository's .clang-tidy, every source of ours, zero findings.
JOBS=$jobs scripts/tidy.sh build-asan
# The shipped skill files must load and keep every target within the robot's joint ranges.
build-asan/korvel-check Data
# Arbitrary bytes into the message parser and the world model for a bounded time (clang build).
fuzz/run.sh
scripts/test-ratio.sh
