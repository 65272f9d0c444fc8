#!/usr/bin/env bash
# The NetPlay soak, outside the test suite: GAMES whole computer games (20)
# on a host watched by eight clients, one line a game and the host's memory.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build build --target cli_tests varkesh-cli
VARKESH_SOAK_GAMES="${1:-20}" build/bin/cli_tests --gtest_also_run_disabled_tests \
  --gtest_filter='NetPlaySoak.*'
