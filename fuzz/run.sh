#!/usr/bin/env bash
# Builds the libFuzzer targets with clang++ in build-fuzz and runs the world-model fuzzer for a
# bounded time (FUZZ_SECONDS, default 30 s), seeded with the recorded server messages. Fails on
# any crash, sanitizer report, leak or input that takes longer than 10 s.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${FUZZ_SECONDS:-30}
jobs=${JOBS:-2}
cmake -S . -B build-fuzz -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DKORVEL_FUZZ=ON -DKORVEL_TESTS=OFF -DKORVEL_SANITIZE=ON \
  -DCMAKE_CXX_FLAGS=-fsanitize=fuzzer-no-link >/dev/null
cmake --build build-fuzz -j"$jobs" --target korvel_worldmodel_fuzzer

# Seeds: every message of the sample, every 40th message of the long session, and runs of
# three consecutive sample messages (a sequence for one world model).
corpus=build-fuzz/corpus
rm -rf "$corpus"
mkdir -p "$corpus"
split -l 1 -a 4 -d tests/data/server-messages-sample.txt "$corpus/sample-"
awk 'NR % 40 == 1' tests/data/real-session-3200.txt | split -l 1 -a 4 -d - "$corpus/session-"
split -l 3 -a 4 -d tests/data/server-messages-sample.txt "$corpus/run-"

log=build-fuzz/fuzz.log
if ! build-fuzz/fuzz/korvel_worldmodel_fuzzer -max_total_time="$seconds" -max_len=8192 \
  -timeout=10 -dict=fuzz/perceptors.dict -artifact_prefix=build-fuzz/ -print_final_stats=1 \
  "$corpus" >"$log" 2>&1; then
  tail -n 60 "$log" >&2
  echo "fuzz: FAILED (input and full log in build-fuzz/)" >&2
  exit 1
fi
runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
echo "fuzz: ${runs:-?} inputs in ${seconds} s, no crash"
