#!/usr/bin/env bash
# Fails when a source file includes a header from a layer above its own, or from a layer of the
# same rank other than its own. Every layer's headers are reachable from every other (src/ is the
# one include root), so only this check keeps the order.
set -u
src=${1:?usage: layering_test.sh SRC_DIR}
# Layer order, low to high.
layers=(math utilities objects body worldmodel commands skills plans agent)
rank() {
  local i
  for i in "${!layers[@]}"; do
    [ "${layers[$i]}" = "$1" ] && echo "$i" && return
  done
  echo 99
}
status=0
checked=0
while IFS= read -r file; do
  rel=${file#"$src"/}
  layer=${rel%%/*}
  [ "$layer" = "$rel" ] && continue # files at the top of src/ (main.cpp) may use every layer
  own=$(rank "$layer")
  dir=$(dirname "$rel")
  while IFS= read -r inc; do
    # A relative include ("../worldmodel/Ball.h", "Ball.h") counts from the including file's folder.
    case "$inc" in
      ../* | ./*) inc=$(realpath -m --relative-to="$src" "$src/$dir/$inc") ;;
    esac
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
