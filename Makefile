# Front door: each target installs missing packages, configures once and builds incrementally.
BUILD      ?= build
BUILD_TYPE ?= RelWithDebInfo
CMAKE_ARGS ?=

.PHONY: all deps configure build run test clean

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
run:
	@if [ -z "$$DISPLAY" ] && [ -z "$$WAYLAND_DISPLAY" ]; then \
	  echo 'make run: no display found (DISPLAY and WAYLAND_DISPLAY are unset); start it under Xvfb with: xvfb-run -s "-screen 0 1920x1200x24" make run'; \
	  exit 0; \
	fi; \
	$(MAKE) --no-print-directory build && \
	pages="$$($(BUILD)/src/tool/paginox-tool folders | awk -F'\t' '$$1 == 10 { print $$2 }')" && \
	$(BUILD)/src/app/paginox "$${pages}$(RUN_PAGE)"

test: build
	cd $(BUILD) && ctest --output-on-failure -j2

clean:
	rm -rf $(BUILD)

# Benchmarks (Google Benchmark), not part of "make test": builds and runs them, then prints
# each figure beside the baseline measured in the same run. BENCH_ARGS go to the program
# (e.g. BENCH_ARGS=--benchmark_filter=Frame).
BENCH_ARGS ?=

.PHONY: bench

bench: deps configure
	cmake --build $(BUILD) --target paginox_bench
	$(BUILD)/bench/paginox_bench $(BENCH_ARGS)
