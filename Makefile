# The two commands: `make run` and `make test`. Both first install what is
# missing (Debian packages), then build.

JOBS ?= $(shell nproc)
BUILD_DIR := build/default
ASAN_DIR := build/asan
FUZZ_SECONDS ?= 300
FUZZ_JOBS ?= 1
FUZZ_MODE ?= search

.PHONY: all deps build run screenshots test test-asan test-tsan fuzz bench bench-short mutate format-check \
	package package-check clean

all: build

deps:
	@bash tools/install-deps.sh

build: deps
	@cmake --preset default >/dev/null
	@cmake --build --preset default -j $(JOBS)

run: build
	@if [ -n "$$DISPLAY$$WAYLAND_DISPLAY" ]; then \
		$(BUILD_DIR)/src/zebtools; \
	else \
		echo "No display: rendering each tool to screenshots/ instead."; \
		QT_QPA_PLATFORM=offscreen $(BUILD_DIR)/src/zebtools --screenshot screenshots && \
		echo "Screenshots are in $$(pwd)/screenshots/"; \
	fi

# The user guide's pictures (docs/screenshots), the tuner hearing a tone.
screenshots: build
	@bash tools/doc-screenshots.sh $(BUILD_DIR)/src/zebtools docs/screenshots

test: build
	@ctest --preset default -j $(JOBS)

# Every test, the app's included, under AddressSanitizer and UBSan; leaks
# inside Qt, fontconfig and openal are suppressed in tools/sanitizers/.
test-asan: deps
	@cmake --preset asan >/dev/null
	@cmake --build --preset asan -j $(JOBS)
	@ctest --preset asan -j $(JOBS)

# The core libraries' tests (the engines' threads, capture, streams) under
# ThreadSanitizer.
test-tsan: deps
	@cmake --preset tsan >/dev/null
	@cmake --build --preset tsan -j $(JOBS)
	@ctest --preset tsan -j $(JOBS)

# Each fuzz target for FUZZ_SECONDS (FUZZ_JOBS at a time), a fresh random
# search; FUZZ_MODE=replay replays the seeds and makes a fixed number of
# inputs from a fixed seed (what CI runs). See docs/fuzzing.md.
fuzz: deps
	@cmake --preset fuzz >/dev/null
	@cmake --build --preset fuzz -j $(JOBS)
	@FUZZ_SECONDS=$(FUZZ_SECONDS) FUZZ_MODE=$(FUZZ_MODE) FUZZ_JOBS=$(FUZZ_JOBS) bash tools/run-fuzzers.sh

# Every tracked C++ file as clang-format makes it (the repository's .clang-format),
# and no source file over 300 lines.
format-check: deps
	@bash tools/check-format.sh
	@bash tools/check-length.sh

# The Debian package, in build/package/.
package: build
	@cd $(BUILD_DIR) && cpack -B ../package

# The package built, checked, installed with apt and run (CI).
package-check: deps
	@bash tools/check-package.sh

# Every benchmark's full run (minutes), then the tuner's in the real app
# through a PulseAudio null sink; fails at the end if one could not measure.
bench: build
	@status=0; \
	for b in $(BUILD_DIR)/bench/bench_*; do \
		[ -x "$$b" ] || continue; echo "::: $$b"; "$$b" || status=1; \
	done; \
	echo "::: bench/tuner_settle_live.sh"; \
	bash bench/tuner_settle_live.sh $(BUILD_DIR)/src/zebtools || [ $$? -eq 77 ] || status=1; \
	exit $$status

# Each benchmark's short mode (seconds each), as the tests run them.
bench-short: build
	@ctest --preset default -L bench

# Plants the slips of tools/mutations.txt one at a time and reports which the
# tests catch (tens of minutes; not part of CI). MUTATE_ARGS e.g. "--sample 30".
mutate: deps
	@cmake --preset default >/dev/null
	@python3 tools/mutate.py $(MUTATE_ARGS)

clean:
	rm -rf build
