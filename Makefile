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

# Prints the object class catalogue of the bundled sample data.
run: build
	$(BUILD)/src/tool/paginox-tool --data $(BUILD)/sample classes

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
