# The two set-up commands of a fresh Debian 12 machine: `make run` and `make test`.
BUILD ?= build
ASAN_BUILD ?= build-asan
FUZZ_BUILD ?= build-fuzz
FUZZ_SECONDS ?= 60
JOBS ?= $(shell nproc)
CMAKE_FLAGS ?=

.PHONY: all deps configure build run test check-asan fuzz fuzz-build deb clean

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

# The tests under AddressSanitizer (leaks included) and UndefinedBehaviorSanitizer; the logic
# libraries and fornax-cli, without the desktop.
check-asan: deps
	@cmake -S . -B $(ASAN_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=Debug -DFORNAX_SANITIZE=ON -DFORNAX_UI=OFF -DFORNAX_BENCH=OFF >/dev/null
	@cmake --build $(ASAN_BUILD) -j $(JOBS)
	@cd $(ASAN_BUILD) && ASAN_OPTIONS=detect_leaks=1:strict_string_checks=1:check_initialization_order=1 \
	  UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 ctest --output-on-failure -j $(JOBS)

# The libFuzzer harnesses (clang, optimised, every library instrumented), then each of them for
# FUZZ_SECONDS seconds on its seed corpus: any crash, leak, timeout or out-of-memory fails.
fuzz-build: deps
	@CC=clang CXX=clang++ cmake -S . -B $(FUZZ_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DFORNAX_FUZZ=ON -DFORNAX_UI=OFF -DFORNAX_BENCH=OFF >/dev/null
	@cmake --build $(FUZZ_BUILD) -j $(JOBS) --target fuzz_tutti

# Besides crashes, leaks, timeouts and out-of-memory, a harness fails on a file that doesn't read
# back as it was written and on a tree whose links disagree.
fuzz: fuzz-build
	@bash scripts/fuzz $(FUZZ_BUILD) $(FUZZ_SECONDS) $(JOBS)

# The Debian package of the build (apt install ./build/pacchetto/fornax_*.deb).
deb: build
	@cd $(BUILD) && cpack -G DEB >/dev/null && ls -1 $$PWD/pacchetto/fornax_*.deb

clean:
	rm -rf $(BUILD) $(ASAN_BUILD) $(FUZZ_BUILD)
