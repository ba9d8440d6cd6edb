#!/usr/bin/env bash
# Fails when a tracked source file under src/ is over 300 lines: split it by
# concept instead.
set -euo pipefail
cd "$(dirname "$0")/.."
limit=300
long=$(git ls-files 'src/*.cpp' 'src/*.h' 'src/*.qml' | xargs wc -l | awk -v max=$limit '$2 != "total" && $1 > max')
if [ -n "$long" ]; then
  echo "Over $limit lines:"
  echo "$long"
  exit 1
fi
