#!/usr/bin/env bash
# Prints the size of the test suite against the code it tests, in non-blank lines of the source
# files (.cpp, .h, .py, .sh) git knows about: tests/ (without the recorded data in tests/data/)
# against src/, tools/, bench/, fuzz/, scripts/ and the scripts at the top of the repository.
# Documentation, CMake files and data (skill files, fault lists, dictionaries) count on neither
# side; a tool's own test_*.py counts as a test. Information only, never a gate.
set -euo pipefail
cd "$(dirname "$0")/.."
count() { # non-blank lines of the tracked (and new, unignored) source files the patterns name
  git ls-files -co --exclude-standard -- "$@" | grep -E '\.(cpp|h|py|sh)$' |
    while IFS= read -r f; do [ -f "$f" ] && echo "$f"; done |
    tr '\n' '\0' | xargs -0 -r cat | grep -c '[^[:space:]]' || true
}
tests=$(($(count tests ':!tests/data') + $(count 'tools/**/test_*.py')))
code=$(count src tools bench fuzz scripts './*.sh' ':!tools/**/test_*.py')
awk -v t="$tests" -v c="$code" 'BEGIN {
  printf "test size: %d non-blank lines of tests against %d of code: %.1f %%\n", t, c, c ? 100 * t / c : 0 }'
