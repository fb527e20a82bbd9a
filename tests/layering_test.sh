#!/usr/bin/env bash
# Fails when a source file includes a header from a layer above its own.
# Layer order (low to high): math, utilities, body/worldmodel, commands, skills, plans, agent.
set -u
src=${1:?usage: layering_test.sh SRC_DIR}
rank() {
  case "$1" in
    math) echo 0 ;;
    utilities) echo 1 ;;
    body | worldmodel) echo 2 ;;
    commands) echo 3 ;;
    skills) echo 4 ;;
    plans) echo 5 ;;
    agent) echo 6 ;;
    *) echo 99 ;;
  esac
}
status=0
checked=0
while IFS= read -r file; do
  rel=${file#"$src"/}
  layer=${rel%%/*}
  [ "$layer" = "$rel" ] && continue # files at the top of src/ (main.cpp) may use every layer
  own=$(rank "$layer")
  while IFS= read -r inc; do
    target=${inc%%/*}
    [ -d "$src/$target" ] || continue # system or same-folder header
    theirs=$(rank "$target")
    if [ "$theirs" -gt "$own" ]; then
      echo "layering: $rel includes \"$inc\" from layer '$target', above '$layer'"
      status=1
    fi
  done < <(sed -n 's/^[[:space:]]*#[[:space:]]*include[[:space:]]*"\([^"]*\)".*/\1/p' "$file")
  checked=$((checked + 1))
done < <(find "$src" -type f \( -name '*.h' -o -name '*.cpp' \) | sort)
echo "layering: $checked files checked"
exit $status
