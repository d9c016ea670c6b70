#!/usr/bin/env bash
# Installs the Debian packages Quillbox needs to build and test, only those that are missing.
set -euo pipefail
packages=(cmake ninja-build g++ pkg-config ccache qt6-base-dev libqscintilla2-qt6-dev libsqlite3-dev
          libicu-dev libgtest-dev libbenchmark-dev fonts-dejavu-core qt6-l10n-tools
          clang libclang-rt-14-dev)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi
echo "Installing: ${missing[*]}"
sudo_cmd=()
[ "$(id -u)" -eq 0 ] || sudo_cmd=(sudo)
"${sudo_cmd[@]}" apt-get update -qq
DEBIAN_FRONTEND=noninteractive "${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
