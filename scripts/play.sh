#!/usr/bin/env bash
# Sets up a fresh Debian machine, builds the game and starts it.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVARKESH_BENCHMARKS=OFF
cmake --build build --target varkesh varkesh-cli
exec build/bin/varkesh "$@"
