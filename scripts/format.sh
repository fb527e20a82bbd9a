#!/usr/bin/env bash
# Applies .clang-format to every C++ file of ours; with --check only reports files that differ.
set -euo pipefail
cd "$(dirname "$0")/.."
fmt=${CLANG_FORMAT:-clang-format}
mapfile -t files < <(git ls-files -co --exclude-standard -- '*.h' '*.cpp' 2>/dev/null ||
  find src tests tools bench fuzz -name '*.h' -o -name '*.cpp' 2>/dev/null)
[ ${#files[@]} -gt 0 ] || exit 0
if [ "${1:-}" = "--check" ]; then
  "$fmt" --dry-run --Werror "${files[@]}"
  echo "format: ${#files[@]} files follow .clang-format"
else
  "$fmt" -i "${files[@]}"
fi
