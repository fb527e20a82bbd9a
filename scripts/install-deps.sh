#!/usr/bin/env bash
# Installs the Debian packages the build and the tests need, skipping those already present.
# Runs apt-get only when something is missing, so a prepared machine starts at once.
set -euo pipefail
# python3: the key-frame sheets (tools/keyframes, standard library only) that the tests rerun.
packages=(g++ make cmake libboost-dev libgtest-dev libgmock-dev libbenchmark-dev
  clang libclang-rt-14-dev clang-format clang-tidy python3 python3-scipy python3-matplotlib)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0
echo "Installing missing packages: ${missing[*]}"
if [ "$(id -u)" -ne 0 ]; then
  if command -v sudo >/dev/null 2>&1; then sudo=sudo; else
    echo "Please install as root: apt-get install ${missing[*]}" >&2
    exit 1
  fi
else
  sudo=
fi
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
