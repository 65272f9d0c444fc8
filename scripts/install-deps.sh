#!/usr/bin/env bash
# Installs the Debian packages that building, running, testing and making
# the Debian package need, skipping the ones already there.
#   scripts/install-deps.sh [--list] [MORE_PACKAGES...]
# --list only prints the packages it would see to.
set -euo pipefail
# file and dpkg-dev: cpack -G DEB calls file and dpkg-shlibdeps.
packages=(g++ cmake ninja-build qt6-base-dev qt6-base-dev-tools qt6-multimedia-dev
          libgtest-dev libbenchmark-dev zlib1g-dev fonts-dejavu-core file dpkg-dev)
if [ "${1:-}" = "--list" ]; then
  shift
  printf '%s\n' "${packages[@]}" "$@"
  exit 0
fi
packages+=("$@")
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0
sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
echo "Installing: ${missing[*]}"
$sudo apt-get update -qq
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq "${missing[@]}"
