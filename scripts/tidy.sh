#!/usr/bin/env bash
# Runs clang-tidy with the repository's .clang-tidy on every source of ours (src/, tools/, bench/,
# fuzz/ and tests/) listed in BUILD_DIR/compile_commands.json, in parallel, and fails on any
# finding. A source whose preprocessed text (and .clang-tidy) has not changed since it last
# passed is skipped: the passes are remembered in BUILD_DIR/tidy-passed/.
#   scripts/tidy.sh [BUILD_DIR]      (default build-asan; JOBS=n sets the parallelism, default 2)
# The compile database is GCC's: warning options clang does not know are not findings.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build-asan}
jobs=${JOBS:-2}
tidy=${CLANG_TIDY:-$(command -v clang-tidy-14 || command -v clang-tidy)}
[ -f "$build/compile_commands.json" ] || { echo "tidy: no $build/compile_commands.json" >&2; exit 1; }
passed="$build/tidy-passed"
mkdir -p "$passed"
root=$(pwd)
# One line per source: the key of its preprocessed text, a tab, the source path.
todo=$(python3 - "$build" "$root" "$tidy" <<'PY'
import hashlib, json, os, shlex, subprocess, sys
build, root, tidy = sys.argv[1:4]
config = open(os.path.join(root, '.clang-tidy'), 'rb').read()
version = subprocess.run([tidy, '--version'], capture_output=True).stdout
for entry in json.load(open(os.path.join(build, 'compile_commands.json'))):
    path = os.path.relpath(entry['file'], root)
    if path.split('/')[0] not in ('src', 'tools', 'bench', 'fuzz', 'tests'):
        continue
    words = shlex.split(entry['command'])
    args, skip = [], False
    for w in words:
        if skip:
            skip = False
            continue
        if w == '-o':
            skip = True
            continue
        if w == '-c':
            continue
        args.append(w)
    text = subprocess.run(args + ['-E', '-P'], cwd=entry['directory'], capture_output=True).stdout
    key = hashlib.sha256(config + version + path.encode() + text).hexdigest()
    print(key + '\t' + path)
PY
)
pending=()
while IFS=$'\t' read -r key path; do
  [ -n "$key" ] || continue
  [ -f "$passed/$key" ] || pending+=("$key	$path")
done <<<"$todo"
total=$(grep -c . <<<"$todo" || true)
if [ ${#pending[@]} -eq 0 ]; then
  echo "tidy: $total sources, none changed since they passed"
  exit 0
fi
echo "tidy: $total sources, checking ${#pending[@]}"
status=0
printf '%s\n' "${pending[@]}" |
  xargs -P "$jobs" -d '\n' -n 1 sh -c '
    key=${1%%	*}; path=${1#*	}
    if out=$("$0" -p "'"$build"'" --quiet --extra-arg=-Wno-unknown-warning-option "$path" 2>/dev/null); then
      : >"'"$passed"'/$key"
    else
      printf "%s\n" "$out"
      exit 1
    fi' "$tidy" || status=1
[ $status -eq 0 ] && echo "tidy: no findings"
exit $status
