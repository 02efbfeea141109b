# The two commands a new user needs:
#   make test   installs what is missing, builds, and runs every test
#   make demo   installs what is missing, builds, and runs the gallery
BUILD ?= build
BUILD_TYPE ?= RelWithDebInfo
JOBS ?= $(shell nproc 2>/dev/null || echo 2)
CMAKE_FLAGS ?=

.PHONY: all deps configure build test demo install images lupdate clean fuzz bench

all: build

deps:
	@sh scripts/install-deps.sh

configure: deps
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=$(BUILD_TYPE) $(CMAKE_FLAGS)

build: configure
	cmake --build $(BUILD) --parallel $(JOBS)

test: build
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure --parallel $(JOBS)

demo: build
	cd $(BUILD) && ./examples/gallery/orvane-gallery

# Every fuzz target for FUZZ_SECONDS each, with clang's libFuzzer,
# AddressSanitizer and UndefinedBehaviorSanitizer, in its own build tree.
FUZZ_BUILD ?= build-fuzz
FUZZ_SECONDS ?= 60
FUZZ_FLAGS = -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer
fuzz:
	@sh scripts/install-deps.sh clang libclang-rt-14-dev
	cmake -S . -B $(FUZZ_BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ \
		-DORVANE_BUILD_FUZZERS=ON -DORVANE_BUILD_EXAMPLES=OFF -DORVANE_FUZZ_SECONDS=$(FUZZ_SECONDS) \
		"-DCMAKE_CXX_FLAGS=$(FUZZ_FLAGS)"
	cmake --build $(FUZZ_BUILD) --parallel $(JOBS) --target fuzzers
	cd $(FUZZ_BUILD) && ctest -L fuzz --output-on-failure

# Every benchmark in bench/, in an optimised build tree of its own.
BENCH_BUILD ?= build-bench
bench:
	@sh scripts/install-deps.sh libbenchmark-dev libssl-dev
	cmake -S . -B $(BENCH_BUILD) -DCMAKE_BUILD_TYPE=Release -DORVANE_BUILD_BENCHMARKS=ON \
		-DORVANE_BUILD_EXAMPLES=OFF -DBUILD_TESTING=OFF
	cmake --build $(BENCH_BUILD) --parallel $(JOBS) --target run-benchmarks

# make install PREFIX=/some/where
PREFIX ?= /usr/local
install: build
	cmake --install $(BUILD) --prefix $(PREFIX)

# Redraws the PNG images from their SVG sources (needs librsvg2-bin).
images:
	sh resources/images/render.sh

# Refreshes the translation sources from the code; rewrites tracked files.
lupdate: configure
	cmake --build $(BUILD) --target lupdate

clean:
	rm -rf $(BUILD)
