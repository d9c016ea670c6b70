#!/usr/bin/env bash
# Runs every test: installs what is missing, builds, and runs CTest headless.
# SANITIZE=1 builds into build-asan/ with AddressSanitizer and UndefinedBehaviorSanitizer.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
export QT_QPA_PLATFORM=offscreen
if [ "${SANITIZE:-0}" = 1 ]; then
  export BUILD_DIR=build-asan BUILD_TYPE=Debug
  export ASAN_OPTIONS=detect_leaks=0:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
  scripts/build.sh -DQUILLBOX_SANITIZE=ON -DQUILLBOX_BUILD_BENCH=OFF
else
  export BUILD_DIR=build
  scripts/build.sh
fi
ctest --test-dir "$BUILD_DIR" --output-on-failure -j"$(nproc)" --timeout 300
