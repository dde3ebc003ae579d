# Every target wraps CMake; builds use two jobs (the machines have two cores).
BUILD      ?= build
BUILD_ASAN ?= build-asan
BUILD_FUZZ ?= build-fuzz
JOBS       ?= 2
FUZZ_SEGUNDOS ?= 60
GENERADOR  := -G Ninja

.PHONY: all deps configure build run test test-asan bench format fuzz screenshots clean

all: build

deps:
	@bash scripts/install-deps

$(BUILD)/build.ninja:
	cmake -S . -B $(BUILD) $(GENERADOR) -DCMAKE_BUILD_TYPE=RelWithDebInfo

configure: deps $(BUILD)/build.ninja

build: configure
	cmake --build $(BUILD) -j$(JOBS)

run: build
	$(BUILD)/apps/vorimesk-cli/vorimesk-cli --help

test: build
	ctest --test-dir $(BUILD) --output-on-failure -j$(JOBS)

$(BUILD_ASAN)/build.ninja:
	cmake -S . -B $(BUILD_ASAN) $(GENERADOR) -DCMAKE_BUILD_TYPE=Debug -DVORIMESK_BENCH=OFF \
	  -DCMAKE_CXX_FLAGS="-fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined"

test-asan: deps $(BUILD_ASAN)/build.ninja
	cmake --build $(BUILD_ASAN) -j$(JOBS)
	ASAN_OPTIONS=detect_leaks=1 ctest --test-dir $(BUILD_ASAN) --output-on-failure -j$(JOBS)

bench: build
	@for b in $(BUILD)/bench/bench_*; do \
	  [ -x "$$b" ] || continue; echo "== $$b"; "$$b" --benchmark_repetitions=5 \
	    --benchmark_report_aggregates_only=true || exit 1; done

screenshots: build
	$(BUILD)/tests/ui/capturas_ui $(BUILD)/screenshots
	QT_SCALE_FACTOR=2 $(BUILD)/tests/ui/capturas_ui $(BUILD)/screenshots/x2

format:
	@git ls-files '*.cpp' '*.h' | xargs clang-format -i

clean:
	rm -rf $(BUILD) $(BUILD_ASAN) $(BUILD_FUZZ)
