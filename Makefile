# The two commands a new user needs:
#   make test   installs what is missing, builds, and runs every test
#   make demo   installs what is missing, builds, and runs the gallery
BUILD ?= build
BUILD_TYPE ?= RelWithDebInfo
JOBS ?= $(shell nproc 2>/dev/null || echo 2)
CMAKE_FLAGS ?=

.PHONY: all deps configure build test demo install images lupdate clean

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
