#!/usr/bin/env bash
# Builds the Debian package, checks what it carries, installs it with apt on
# this machine and runs the installed programs as a user would. CI runs it.
set -euo pipefail
cd "$(dirname "$0")/.."
make package
deb=$(ls build/package/zebtools_*.deb | head -n 1)

contents=$(dpkg-deb -c "$deb" | awk '{print $6}')
for path in ./usr/bin/zebtools ./usr/bin/zebtools-cli \
    ./usr/share/zebtools/saveState.plist ./usr/share/zebtools/sounds/E2_.caf \
    ./usr/share/zebtools/sounds/5_tock.caf \
    ./usr/share/applications/org.zebtools.ZebTools.desktop \
    ./usr/share/metainfo/org.zebtools.ZebTools.metainfo.xml \
    ./usr/share/icons/hicolor/scalable/apps/org.zebtools.ZebTools.svg \
    ./usr/share/icons/hicolor/256x256/apps/org.zebtools.ZebTools.png \
    ./usr/share/man/man1/zebtools.1 ./usr/share/man/man1/zebtools-cli.1 \
    ./usr/share/bash-completion/completions/zebtools-cli; do
    grep -qx -- "$path" <<< "$contents" || { echo "FAIL: $path missing from $deb"; exit 1; }
done
if grep -E '\.(a|h|cpp)$|/include/' <<< "$contents"; then
    echo "FAIL: build files in the package"; exit 1
fi
dpkg-deb -f "$deb" Depends | grep -q qml6-module-qtquick-controls ||
    { echo "FAIL: the QML modules are not declared"; exit 1; }
echo "ok: package contents"

sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --reinstall "./$deb" > /dev/null

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
zebtools-cli --version
QT_QPA_PLATFORM=offscreen ALSOFT_DRIVERS=null ZEBTOOLS_DATA_DIR="$work/data" \
    timeout 120 zebtools --screenshot "$work/shots" > "$work/log" 2>&1 ||
    { cat "$work/log"; echo "FAIL: installed app"; exit 1; }
[ -s "$work/shots/metronome.png" ] || { echo "FAIL: no screenshot from the installed app"; exit 1; }
echo "ok: installed package runs ($(basename "$deb"))"
