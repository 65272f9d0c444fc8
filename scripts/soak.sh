#!/usr/bin/env bash
# The NetPlay soak, outside the test suite: GAMES whole computer games (20)
# on a host watched by eight clients, one line a game and the host's memory.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVARKESH_BENCHMARKS=ON
cmake --build build --target netplay_soak
build/bin/netplay_soak "${1:-20}"
