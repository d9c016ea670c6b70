#!/usr/bin/env bash
# Runs every test: installs what is missing, builds, and runs CTest headless.
# SANITIZE=1 builds into build-asan/ with AddressSanitizer and UndefinedBehaviorSanitizer.
# The tests are switched on whatever an earlier command left in the build folder's cache
# (scripts/run.sh builds without them), and a run in which no test ran fails.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
export QT_QPA_PLATFORM=offscreen
every_test=(-DQUILLBOX_BUILD_TESTS=ON -DQUILLBOX_SKIP_TEST_AREAS=)
if [ "${SANITIZE:-0}" = 1 ]; then
  export BUILD_DIR=build-asan BUILD_TYPE=Debug
  export ASAN_OPTIONS=detect_leaks=0:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
  scripts/build.sh "${every_test[@]}" -DQUILLBOX_SANITIZE=ON -DQUILLBOX_BUILD_BENCH=OFF
else
  export BUILD_DIR=build
  scripts/build.sh "${every_test[@]}" -DQUILLBOX_BUILD_BENCH=ON
fi
ctest --test-dir "$BUILD_DIR" --output-on-failure --no-tests=error -j"$(nproc)" --timeout 300
