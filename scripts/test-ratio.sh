#!/usr/bin/env bash
# Prints the size of the test suite against the code it tests, in non-blank lines of the files
# git knows about: tests/ (without the recorded data in tests/data/) against src/, tools/, bench/,
# fuzz/, scripts/ and the scripts at the top of the repository. Information only, never a gate.
set -euo pipefail
cd "$(dirname "$0")/.."
count() { # non-blank lines of the tracked (and new, unignored) files under the given paths
  git ls-files -co --exclude-standard -- "$@" | while IFS= read -r f; do [ -f "$f" ] && echo "$f"; done |
    tr '\n' '\0' | xargs -0 -r cat | grep -c '[^[:space:]]' || true
}
tests=$(count tests ':!tests/data')
code=$(count src tools bench fuzz scripts ./*.sh)
awk -v t="$tests" -v c="$code" 'BEGIN {
  printf "test size: %d non-blank lines of tests against %d of code: %.1f %%\n", t, c, c ? 100 * t / c : 0 }'
