#!/usr/bin/env python3
"""Mutation testing of the core libraries: plants one slip at a time from
tools/mutations.txt into a source file, rebuilds the test programs that
cover that file, runs them and puts the file back. A mutation is "caught"
when a test fails (or the program crashes or times out).

    tools/mutate.py [--sample N] [--seed S] [--only ID,ID] [--report FILE]
                    [--baseline PATTERNS]

--baseline takes fnmatch patterns ("program/Suite.Test", ":"-separated) of
tests that count as new: each mutation is then also judged as if those
tests did not exist, which gives a before/after figure from one build.

The source files are restored whatever happens: after each mutation, on
any exception, on SIGINT/SIGTERM/SIGHUP, and at the next start should a run
have been killed outright (the originals are kept in BUILD/mutate/backup).
The script refuses to touch a file with uncommitted changes, so a mutated
tree can always be told from the committed one.
"""

import argparse
import configparser
import fnmatch
import json
import os
import random
import shutil
import signal
import subprocess
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent

# The test programs that cover each core folder, unless a mutation names its own.
PROGRAMS = {
    "src/metronome": ["test_metronome"],
    "src/tuners": ["test_tuners"],
    "src/tunings": ["test_tunings", "test_tuners"],
    "src/state": ["test_state"],
    "src/dsp": ["test_dsp"],
    "src/chords": ["test_chords"],
    "src/sound": ["test_sound", "test_chords"],
}

# Real-time tests (30 s of live audio) add nothing the offline ones miss.
EXCLUDED = "LiveStream.*"
TIMEOUT = 600


class Restorer:
    """Keeps the original bytes of the file being mutated, in memory and on disk."""

    def __init__(self, backup_dir):
        self.backup_dir = backup_dir
        self.current = None  # (path, original bytes)

    def recover_leftovers(self):
        if not self.backup_dir.exists():
            return
        for saved in self.backup_dir.glob("*.orig"):
            target = ROOT / saved.read_text().splitlines()[0]
            data = (saved.with_suffix(".data")).read_bytes()
            target.write_bytes(data)
            print(f"restored {target.relative_to(ROOT)} left mutated by an earlier run")
            saved.unlink()
            saved.with_suffix(".data").unlink()

    def plant(self, path, original, mutated):
        self.backup_dir.mkdir(parents=True, exist_ok=True)
        (self.backup_dir / "current.data").write_bytes(original)
        (self.backup_dir / "current.orig").write_text(str(path.relative_to(ROOT)) + "\n")
        self.current = (path, original)
        path.write_bytes(mutated)

    def restore(self):
        if self.current is None:
            return
        path, original = self.current
        # The file gets a new modification time, so the build sees it changed
        # and recompiles it from the original.
        path.write_bytes(original)
        self.current = None
        for name in ("current.orig", "current.data"):
            (self.backup_dir / name).unlink(missing_ok=True)


def load_mutations(path):
    parser = configparser.ConfigParser(interpolation=None, delimiters=("=",))
    parser.optionxform = str
    parser.read(path)
    mutations = []
    for mid in parser.sections():
        s = parser[mid]
        file = s["file"]
        folder = str(Path(file).parent)
        programs = s.get("tests", "").split() or PROGRAMS.get(folder)
        if not programs:
            sys.exit(f"{mid}: no test programs known for {folder}")
        mutations.append({
            "id": mid, "file": file, "programs": programs, "what": s.get("what", ""),
            # "\\n" stands for a line break (with the next line's indentation written out).
            "find": s["find"].replace("\\n", "\n"),
            "replace": s.get("replace", "").replace("\\n", "\n"),
            "occurrence": int(s.get("occurrence", "0")),
        })
    return mutations


def uncommitted(files):
    out = subprocess.run(["git", "status", "--porcelain", "--"] + sorted(files), cwd=ROOT,
                         capture_output=True, text=True, check=True).stdout
    return out.strip()


def build(build_dir, targets):
    result = subprocess.run(["cmake", "--build", str(build_dir), "--target"] + sorted(targets),
                            cwd=ROOT, capture_output=True, text=True)
    return result.returncode == 0, result.stdout[-3000:] + result.stderr[-3000:]


def program_path(build_dir, name):
    found = list((build_dir / "tests").rglob(name))
    found = [p for p in found if p.is_file() and os.access(p, os.X_OK)]
    if not found:
        sys.exit(f"test program {name} not found under {build_dir}/tests")
    return found[0]


def run_program(build_dir, name, work):
    """Runs one program; returns the failed test names, or None when it crashed or hung."""
    out = work / f"{name}.json"
    out.unlink(missing_ok=True)
    env = dict(os.environ, ZEBTOOLS_RESOURCE_DIR=str(ROOT / "data"))
    env.setdefault("QT_QPA_PLATFORM", "offscreen")
    try:
        subprocess.run([str(program_path(build_dir, name)), f"--gtest_filter=-{EXCLUDED}",
                        f"--gtest_output=json:{out}"], cwd=work, env=env,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=TIMEOUT)
    except subprocess.TimeoutExpired:
        return None
    if not out.exists():
        return None
    report = json.loads(out.read_text())
    failed = []
    for suite in report.get("testsuites", []):
        for test in suite.get("testsuite", []):
            if test.get("failures") or test.get("result") not in ("COMPLETED", "SKIPPED", None):
                failed.append(f"{name}/{suite['name']}.{test['name']}")
    return failed


def plant_text(text, m):
    """The text with the mutation planted, or None when its anchor is not where it was."""
    count = text.count(m["find"])
    n = m["occurrence"]
    if (n == 0 and count != 1) or n > count:
        return None
    at = -1
    for _ in range(max(n, 1)):
        at = text.index(m["find"], at + 1)
    return text[:at] + m["replace"] + text[at + len(m["find"]):]


def is_new(test, patterns):
    return any(fnmatch.fnmatchcase(test, p) for p in patterns)


def main():
    ap = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    ap.add_argument("--mutations", default=str(ROOT / "tools" / "mutations.txt"))
    ap.add_argument("--build-dir", default=str(ROOT / "build" / "default"))
    ap.add_argument("--sample", type=int, default=0, help="how many, drawn at random (0: all)")
    ap.add_argument("--seed", type=int, default=1)
    ap.add_argument("--only", default="", help="comma-separated mutation ids")
    ap.add_argument("--baseline", default="", help="patterns of tests that count as new")
    ap.add_argument("--report", default="", help="also write the table to this file")
    args = ap.parse_args()

    build_dir = Path(args.build_dir).resolve()
    work = build_dir / "mutate"
    work.mkdir(parents=True, exist_ok=True)
    restorer = Restorer(work / "backup")
    restorer.recover_leftovers()

    def on_signal(signum, _frame):
        restorer.restore()
        sys.exit(128 + signum)

    for sig in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
        signal.signal(sig, on_signal)

    mutations = load_mutations(args.mutations)
    if args.only:
        wanted = args.only.split(",")
        mutations = [m for m in mutations if m["id"] in wanted]
    elif args.sample and args.sample < len(mutations):
        mutations = random.Random(args.seed).sample(mutations, args.sample)
    files = {m["file"] for m in mutations}
    if dirty := uncommitted(files):
        sys.exit("uncommitted changes in files to mutate; commit or stash first:\n" + dirty)
    new_patterns = [p for p in args.baseline.split(":") if p]

    programs = sorted({p for m in mutations for p in m["programs"]})
    ok, log = build(build_dir, programs)
    if not ok:
        sys.exit("the unmutated tree does not build:\n" + log)
    already_failing = set()
    for name in programs:
        failed = run_program(build_dir, name, work)
        if failed is None:
            sys.exit(f"{name} crashes or hangs without any mutation")
        already_failing.update(failed)
    if already_failing:
        print("failing before any mutation (ignored):", *sorted(already_failing), sep="\n  ")

    rows = []
    try:
        for i, m in enumerate(mutations, 1):
            path = ROOT / m["file"]
            original = path.read_bytes()
            text = original.decode()
            mutated = plant_text(text, m)
            if mutated is None:
                rows.append((m, "stale", "", f"found {text.count(m['find'])} times"))
                continue
            started = time.monotonic()
            restorer.plant(path, original, mutated.encode())
            try:
                built, _ = build(build_dir, m["programs"])
                results = {}
                if built:
                    for name in m["programs"]:
                        results[name] = run_program(build_dir, name, work)
            finally:
                restorer.restore()
            if not built:
                verdict, before, by = "not built", "", ""
            else:
                crashed = [n for n, f in results.items() if f is None]
                failed = [t for f in results.values() if f for t in f if t not in already_failing]
                old = [t for t in failed if not is_new(t, new_patterns)]
                verdict = "caught" if crashed or failed else "MISSED"
                before = "caught" if crashed or old else "MISSED"
                by = ", ".join([f"{n} crashed/hung" for n in crashed] + failed[:3])
            rows.append((m, verdict, before, by))
            print(f"[{i}/{len(mutations)}] {m['id']}: {verdict}"
                  f"{' (before: ' + before + ')' if new_patterns and before else ''}"
                  f" in {time.monotonic() - started:.0f} s", flush=True)
    finally:
        restorer.restore()
        if dirty := uncommitted(files):
            print("WARNING: files differ from the commit after the run:\n" + dirty)
        # The programs were last built from a mutated file: build them again
        # from the restored sources, so that no mutated program is left behind.
        if not build(build_dir, programs)[0]:
            print("WARNING: the test programs did not build again after the run")

    judged = [r for r in rows if r[1] in ("caught", "MISSED")]
    caught = sum(r[1] == "caught" for r in judged)
    lines = ["| mutation | file | slip | caught | before |", "|---|---|---|---|---|"]
    for m, verdict, before, by in rows:
        lines.append(f"| {m['id']} | {m['file']} | {m['what']} | {verdict} | {before} |")
    summary = f"caught {caught} of {len(judged)}"
    if new_patterns:
        summary += f"; without the new tests {sum(r[2] == 'caught' for r in judged)} of {len(judged)}"
    lines.append("")
    lines.append(summary)
    print("\n".join(lines))
    if args.report:
        Path(args.report).write_text("\n".join(lines) + "\n")
    for m, verdict, _, by in rows:
        if by and verdict == "caught":
            continue
        if verdict != "caught":
            print(f"{m['id']}: {verdict} {by}")


if __name__ == "__main__":
    main()
