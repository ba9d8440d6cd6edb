#!/usr/bin/env bash
# Renders the app icon's PNG sizes from packaging/icons/org.zebtools.ZebTools.svg
# into packaging/icons/NxN/ (committed; run again after changing the SVG).
set -euo pipefail
cd "$(dirname "$0")/../packaging/icons"
for size in 16 24 32 48 64 128 256 512; do
  mkdir -p "${size}x${size}"
  rsvg-convert -w "$size" -h "$size" org.zebtools.ZebTools.svg -o "${size}x${size}/org.zebtools.ZebTools.png"
done
