# SPDX-License-Identifier: GPL-3.0-or-later
# Front door: each target installs missing packages, configures once and builds incrementally.
BUILD      ?= build
BUILD_TYPE ?= RelWithDebInfo
CMAKE_ARGS ?=

.PHONY: all deps configure build run test clean install package

all: build

deps:
	@bash scripts/install-deps.sh

$(BUILD)/build.ninja:
	@$(MAKE) --no-print-directory deps
	cmake -S . -B $(BUILD) -G Ninja -DCMAKE_BUILD_TYPE=$(BUILD_TYPE) $(CMAKE_ARGS)

configure: $(BUILD)/build.ninja

build: deps configure
	cmake --build $(BUILD)

# Starts the editor on a sample page: the copy in the demo data folder when there is no host
# installation, as the program itself finds it. Needs a display; says so when there is none.
RUN_PAGE ?= Birth Chart.pag
run: build
	@if [ -z "$$DISPLAY" ] && [ -z "$$WAYLAND_DISPLAY" ]; then \
	  echo 'make run: no display found (DISPLAY and WAYLAND_DISPLAY are unset); start it under Xvfb with: xvfb-run -s "-screen 0 1920x1200x24" make run'; \
	  exit 0; \
	fi; \
	pages="$$($(BUILD)/src/tool/paginox-tool folders | awk -F'\t' '$$1 == 10 { print $$2 }')" && \
	$(BUILD)/src/app/paginox "$${pages}$(RUN_PAGE)"

test: build
	cd $(BUILD) && ctest --output-on-failure -j2

clean:
	rm -rf $(BUILD)

# Installs the programs, their sample data and the desktop files under PREFIX; DESTDIR=... stages
# the tree elsewhere, as packagers do.
PREFIX ?= /usr/local
install: build
	cmake --install $(BUILD) --prefix $(PREFIX)

# The same files as a Debian package, written to $(BUILD)/.
package: build
	cmake --build $(BUILD) --target package

# Fuzz targets for the file readers (clang + libFuzzer), in their own build folder and not part
# of "make test": builds them, then runs each for FUZZ_TIME seconds, FUZZ_JOBS at a time
# (FUZZ_TARGETS="page draw" runs only those).
FUZZ_BUILD ?= build-fuzz
FUZZ_TIME  ?= 30
FUZZ_JOBS  ?= 1
FUZZ_TARGETS ?=
# The whole test suite under AddressSanitizer and UndefinedBehaviorSanitizer.
ASAN_BUILD ?= build-asan

.PHONY: fuzz sanitize

$(FUZZ_BUILD)/build.ninja:
	@bash scripts/install-deps.sh fuzz
	CC=clang CXX=clang++ cmake -S fuzz -B $(FUZZ_BUILD) -G Ninja

fuzz: $(FUZZ_BUILD)/build.ninja
	@bash scripts/install-deps.sh fuzz
	cmake --build $(FUZZ_BUILD)
	bash fuzz/run.sh $(FUZZ_BUILD) $(FUZZ_TIME) $(FUZZ_JOBS) $(BUILD)/sample $(FUZZ_TARGETS)

$(ASAN_BUILD)/build.ninja:
	@$(MAKE) --no-print-directory deps
	cmake -S . -B $(ASAN_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=$(BUILD_TYPE) -DPAGINOX_SANITIZE=ON

sanitize: deps $(ASAN_BUILD)/build.ninja
	cmake --build $(ASAN_BUILD)
	cd $(ASAN_BUILD) && LSAN_OPTIONS=suppressions=$(CURDIR)/scripts/lsan.supp \
		ctest --output-on-failure -j2

# Benchmarks (Google Benchmark), not part of "make test": builds and runs them, then prints
# each figure beside the baseline measured in the same run. BENCH_ARGS go to the program
# (e.g. BENCH_ARGS=--benchmark_filter=Frame).
BENCH_ARGS ?=

.PHONY: bench

bench: deps configure
	cmake --build $(BUILD) --target paginox_bench
	$(BUILD)/bench/paginox_bench $(BENCH_ARGS)
