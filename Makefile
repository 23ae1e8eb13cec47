# Zefiranto 2.0 - build, run, test, benchmark.
BUILD ?= build
JOBS ?= $(shell nproc)
CMAKE_FLAGS ?= -DCMAKE_BUILD_TYPE=Release
# A compiler cache, when the machine has one, makes rebuilds of other checkouts cheap.
ifneq ($(shell command -v ccache 2>/dev/null),)
override CMAKE_FLAGS += -DCMAKE_CXX_COMPILER_LAUNCHER=ccache
endif

.PHONY: all deps configure build run test bench clean screenshot

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

clean:
	rm -rf $(BUILD) $(BUILD).configure.log
