# Zefiranto 2.0 - build, run, test, benchmark.
BUILD ?= build
JOBS ?= $(shell nproc)
CMAKE_FLAGS ?= -DCMAKE_BUILD_TYPE=Release
# A compiler cache, when the machine has one, makes rebuilds of other checkouts cheap.
ifneq ($(shell command -v ccache 2>/dev/null),)
LAUNCHER := -DCMAKE_CXX_COMPILER_LAUNCHER=ccache
override CMAKE_FLAGS += $(LAUNCHER)
endif
# make check: the headless libraries and their tests under AddressSanitizer and
# UndefinedBehaviorSanitizer (built with clang in build-check), then every fuzz target.
CHECK_BUILD ?= build-check
FUZZ_SECONDS ?= 60

.PHONY: all deps configure build run test bench check clean screenshot

all: build

deps:
	@bash scripts/install-deps.sh

configure: deps
	@cmake -S . -B $(BUILD) $(CMAKE_FLAGS) > $(BUILD).configure.log 2>&1 || (cat $(BUILD).configure.log; exit 1)

build: configure
	@cmake --build $(BUILD) -j $(JOBS)

run: build
	@if [ -z "$$DISPLAY" ] && [ -z "$$WAYLAND_DISPLAY" ]; then \
	  echo "Nessun display: avvio sotto xvfb-run"; xvfb-run -a $(BUILD)/bin/zefiranto; \
	else $(BUILD)/bin/zefiranto; fi

test: build
	@cd $(BUILD) && QT_QPA_PLATFORM=offscreen ctest -j $(JOBS) --output-on-failure

bench: build
	@bash scripts/run-bench.sh $(BUILD)

check: deps
	@CC=clang CXX=clang++ cmake -S . -B $(CHECK_BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DZEF_SANITIZE=ON \
	  -DZEF_FUZZ=ON -DZEF_BUILD_UI=OFF -DZEF_BUILD_BENCH=OFF $(LAUNCHER) > $(CHECK_BUILD).configure.log 2>&1 \
	  || (cat $(CHECK_BUILD).configure.log; exit 1)
	@cmake --build $(CHECK_BUILD) -j $(JOBS)
	@cd $(CHECK_BUILD) && ASAN_OPTIONS=detect_leaks=1 ctest -j $(JOBS) --output-on-failure
	@bash scripts/run-fuzz.sh $(CHECK_BUILD) $(FUZZ_SECONDS)

clean:
	rm -rf $(BUILD) $(BUILD).configure.log $(CHECK_BUILD) $(CHECK_BUILD).configure.log
