#!/usr/bin/env bash
# scripts/fuzz.sh [SECONDS] [TARGET...]: builds libFuzzer targets with clang into build-fuzz/
# and runs each for SECONDS (default 5) on a scratch copy of its seed corpus fuzz/corpus/TARGET,
# which therefore never changes. TARGET is a name without "fuzz_"; the default is every target.
# Exits non-zero when a target crashes, leaks, trips a sanitizer or times out; the input that
# did it is kept in build-fuzz/artifacts/.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-5}
shift || true
build_dir=${FUZZ_BUILD_DIR:-build-fuzz}
targets=("$@")
[ ${#targets[@]} -gt 0 ] || targets=(propset styledef sqlcode sqlformat wordlist extract namekit registry textfile)

cmake -S . -B "$build_dir" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DCMAKE_CXX_COMPILER=clang++ -DQUILLBOX_BUILD_FUZZ=ON \
  -DQUILLBOX_BUILD_TESTS=OFF -DQUILLBOX_BUILD_BENCH=OFF >/dev/null
cmake --build "$build_dir" -j"${FUZZ_JOBS:-2}" --target "${targets[@]/#/fuzz_}"

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
artifacts="$PWD/$build_dir/artifacts"
mkdir -p "$artifacts"
status=0
for target in "${targets[@]}"; do
  mkdir -p "$scratch/$target"
  cp -R "fuzz/corpus/$target/." "$scratch/$target/"
  echo "== fuzz_$target for ${seconds}s"
  if ! "$build_dir/fuzz/fuzz_$target" -max_total_time="$seconds" -timeout=30 -rss_limit_mb=2048 \
      -print_final_stats=1 -artifact_prefix="$artifacts/${target}-" "$scratch/$target" \
      >"$scratch/$target.log" 2>&1; then
    status=1
    tail -n 60 "$scratch/$target.log"
    echo "fuzz_$target FAILED; the input is in $artifacts/"
  else
    grep -E '^stat::(number_of_executed_units|peak_rss_mb)|^Done' "$scratch/$target.log" || true
  fi
done
exit $status
