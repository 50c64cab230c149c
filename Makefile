# The two set-up commands of a fresh Debian 12 machine: `make run` and `make test`.
BUILD ?= build
ASAN_BUILD ?= build-asan
JOBS ?= $(shell nproc)
CMAKE_FLAGS ?=

.PHONY: all deps configure build run test check-asan fuzz clean

all: build

deps:
	@bash scripts/install-deps

configure: deps
	@cmake -S . -B $(BUILD) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DFORNAX_WERROR=ON $(CMAKE_FLAGS) >/dev/null

build: configure
	@cmake --build $(BUILD) -j $(JOBS)

# Starts the desktop on a display; without one, shows what fornax-cli loads of a sample project.
run: build
	@bash scripts/run "$(BUILD)"

test: build
	@cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

check-asan: deps
	@cmake -S . -B $(ASAN_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=Debug -DFORNAX_SANITIZE=ON -DFORNAX_UI=OFF -DFORNAX_BENCH=OFF >/dev/null
	@cmake --build $(ASAN_BUILD) -j $(JOBS)
	@cd $(ASAN_BUILD) && ASAN_OPTIONS=detect_leaks=0 ctest --output-on-failure -j $(JOBS)

fuzz: deps
	@CC=clang CXX=clang++ cmake -S . -B build-fuzz -G Ninja -DCMAKE_BUILD_TYPE=Debug -DFORNAX_FUZZ=ON -DFORNAX_UI=OFF -DFORNAX_BENCH=OFF >/dev/null
	@cmake --build build-fuzz -j $(JOBS) --target fuzz_progetto fuzz_archivi

clean:
	rm -rf $(BUILD) $(ASAN_BUILD) build-fuzz
