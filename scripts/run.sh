#!/usr/bin/env bash
# The main job: install what is missing, build, and open the shipped sample script in the
# quillbox program. Without a display the program runs offscreen and writes a picture.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
scripts/build.sh -DQUILLBOX_BUILD_TESTS=OFF -DQUILLBOX_BUILD_BENCH=OFF
exec build/app/quillbox edit samples/sample.sql "$@"
