#!/usr/bin/env bash
# Installs the Debian packages that building, running and testing ZebTools need.
# Idempotent: packages already present are skipped, so a second run does nothing.
set -euo pipefail

packages=(
  build-essential cmake ninja-build pkg-config git ccache clang-format
  clang libclang-rt-dev
  qt6-base-dev qt6-declarative-dev qt6-declarative-dev-tools qt6-tools-dev-tools
  qml6-module-qtquick qml6-module-qtquick-controls qml6-module-qtquick-templates
  qml6-module-qtquick-window qml6-module-qtquick-layouts qml6-module-qtqml
  qml6-module-qtqml-workerscript qml6-module-qttest qml6-module-qtquick-dialogs
  libgl-dev libxkbcommon-dev fonts-dejavu-core
  libopenal-dev libopenal1 libsndfile1-dev libplist-dev libsoxr-dev libkissfft-dev
  libgtest-dev libgmock-dev libbenchmark-dev libcli11-dev nlohmann-json3-dev
  pulseaudio pulseaudio-utils dbus dbus-x11 sox
  help2man desktop-file-utils appstream man-db dpkg-dev
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed'; then
    missing+=("$p")
  fi
done

if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi

sudo=""
if [ "$(id -u)" -ne 0 ]; then
  sudo="sudo"
fi
echo "Installing: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
