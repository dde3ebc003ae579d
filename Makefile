# Every target wraps CMake; builds use two jobs (the machines have two cores).
BUILD      ?= build
BUILD_ASAN ?= build-asan
BUILD_FUZZ ?= build-fuzz
JOBS       ?= 2
ARGS       ?=
FUZZ_SEGUNDOS ?= 60
GENERADOR  := -G Ninja
FUZZ_CXX   ?= clang++-14

.PHONY: all deps configure build run demo test test-asan bench format fuzz screenshots install package clean

all: build

deps:
	@bash scripts/install-deps

$(BUILD)/build.ninja:
	cmake -S . -B $(BUILD) $(GENERADOR) -DCMAKE_BUILD_TYPE=RelWithDebInfo

configure: deps $(BUILD)/build.ninja

build: configure
	cmake --build $(BUILD) -j$(JOBS)

# The meter's window; with no graphical display, the text meter instead.
# Options for the program go in ARGS (make run ARGS="--datos /tmp/prueba").
run: build
	@if [ -z "$$DISPLAY" ] && [ -z "$$WAYLAND_DISPLAY" ]; then \
	  echo "No hay pantalla grafica (no estan definidas DISPLAY ni WAYLAND_DISPLAY):"; \
	  echo "se arranca el contador en modo texto (vorimesk-cli vigilar)."; \
	  exec $(BUILD)/apps/vorimesk-cli/vorimesk-cli $(ARGS) vigilar; \
	else \
	  exec $(BUILD)/apps/vorimesk/vorimesk $(ARGS); \
	fi

# The meter on a simulated modem, with a data folder of its own that starts
# afresh each time: a call is dialled, metered live (main window, mini
# window, tray tip), priced and registered, without a modem.
DEMO_DATOS ?= $(BUILD)/demostracion
demo: build
	@if [ -z "$$DISPLAY" ] && [ -z "$$WAYLAND_DISPLAY" ]; then \
	  echo "La demostracion necesita una pantalla grafica (DISPLAY o WAYLAND_DISPLAY);"; \
	  echo "en modo texto: $(BUILD)/apps/vorimesk-cli/vorimesk-cli --datos $(DEMO_DATOS) vigilar --simular data/guiones/demostracion.guion"; \
	  exit 1; \
	fi
	rm -rf $(DEMO_DATOS)
	$(BUILD)/apps/vorimesk/vorimesk --datos $(DEMO_DATOS) --simular data/guiones/demostracion.guion

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
	$(BUILD)/tools/capturas/capturas_ui $(BUILD)/screenshots
	QT_SCALE_FACTOR=2 $(BUILD)/tools/capturas/capturas_ui $(BUILD)/screenshots/x2

# Every libFuzzer target of fuzz/, FUZZ_SEGUNDOS each, starting from the seed
# files in fuzz/semillas/<target>/; new inputs and any failing ones stay in
# $(BUILD_FUZZ).
$(BUILD_FUZZ)/build.ninja:
	cmake -S . -B $(BUILD_FUZZ) $(GENERADOR) -DCMAKE_CXX_COMPILER=$(FUZZ_CXX) \
	  -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVORIMESK_FUZZ=ON

fuzz: deps $(BUILD_FUZZ)/build.ninja
	cmake --build $(BUILD_FUZZ) -j$(JOBS) --target fuzz_objetivos
	@for semillas in fuzz/semillas/*/; do \
	  n=$$(basename $$semillas); corpus=$(BUILD_FUZZ)/corpus/$$n; \
	  mkdir -p $$corpus && cp -n $$semillas* $$corpus/ 2>/dev/null; \
	  echo "== $$n ($(FUZZ_SEGUNDOS) s)"; \
	  $(BUILD_FUZZ)/fuzz/$$n $$corpus -max_total_time=$(FUZZ_SEGUNDOS) -timeout=10 \
	    -rss_limit_mb=2048 -print_final_stats=1 -artifact_prefix=$(BUILD_FUZZ)/fallo-$$n- \
	    || exit 1; \
	done

install: build
	cmake --install $(BUILD)

package: build
	cd $(BUILD) && cpack -G DEB

format:
	@git ls-files '*.cpp' '*.h' | xargs clang-format -i

clean:
	rm -rf $(BUILD) $(BUILD_ASAN) $(BUILD_FUZZ)
