#!/usr/bin/env bash
# Writes a man page for a program from its own --help and --version with
# help2man. With a command-line tool of subcommands, each subcommand's --help
# becomes a section of the page as well.
#   make-man.sh PROGRAM "ONE-LINE DESCRIPTION" OUT.1
set -euo pipefail
program=$1
summary=$2
out=$3
include=$(mktemp)
trap 'rm -f "$include"' EXIT

commands=$("$program" --help 2>/dev/null | awk '/^Subcommands:/ {on = 1; next} on && NF {print $1}')
if [ -n "$commands" ]; then
    echo "[COMMANDS]" >> "$include"
    for command in $commands; do
        printf '.SS %s\n.nf\n' "$command" >> "$include"
        "$program" "$command" --help | sed -e 's/\\/\\e/g' -e 's/^\./\\\&./' >> "$include"
        printf '.fi\n' >> "$include"
    done
fi
printf '[FILES]\n.TP\n~/.local/share/zebtools/zebtools/saveState.plist\nEvery tool'"'"'s settings (or $ZEBTOOLS_DATA_DIR/saveState.plist).\n.TP\n~/.local/share/zebtools/zebtools/presetsList.plist\nThe metronome presets.\n' >> "$include"

help2man --no-info --no-discard-stderr --name "$summary" --include "$include" \
    --output "$out" "$program"
