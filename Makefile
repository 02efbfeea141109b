# The two commands a new user needs:
#   make test   installs what is missing, builds, and runs every test
#   make demo   installs what is missing, builds, and runs the gallery
# Both take QT=6 to build against Qt 6 instead of Qt 5 (the default), in
# build trees of their own (build-qt6, ...): make test QT=6, make demo QT=6.
QT ?= 5
ifeq ($(QT),6)
QT_SUFFIX = -qt6
QT_PACKAGES = qt6-base-dev qt6-base-private-dev qt6-tools-dev qt6-tools-dev-tools qt6-l10n-tools
# The Qt 6 suite installs the Qt 5 build beside its own (package_side_by_side).
QT_EXTRA_CMAKE = -DORVANE_QT5_BUILD_DIR=$(CURDIR)/build
else ifeq ($(QT),5)
QT_SUFFIX =
QT_PACKAGES =
QT_EXTRA_CMAKE =
else
$(error QT must be 5 or 6)
endif
QT_CMAKE = -DORVANE_QT_MAJOR=$(QT)
# The Designer plugin and its tests are part of the ordinary build (UiPlugin
# comes with qttools5-dev, and with qt6-tools-dev for QT=6).
DESIGNER_CMAKE = -DORVANE_BUILD_DESIGNER_PLUGIN=ON
BUILD ?= build$(QT_SUFFIX)
BUILD_TYPE ?= RelWithDebInfo
JOBS ?= $(shell nproc 2>/dev/null || echo 2)
CMAKE_FLAGS ?=

.PHONY: all deps configure build test test-desktop test-windows test-windows-suite demo install package test-package images lupdate clean fuzz bench check-sanitize check-valgrind docs check-abi abi-baseline

all: build

deps:
	@sh scripts/install-deps.sh $(QT_PACKAGES)

configure: deps
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=$(BUILD_TYPE) $(QT_CMAKE) $(QT_EXTRA_CMAKE) $(DESIGNER_CMAKE) $(CMAKE_FLAGS)

build: configure
	cmake --build $(BUILD) --parallel $(JOBS)

test: build
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure --parallel $(JOBS)

# The interaction tests on real desktops, not run by `make test`: real XTest
# input under Xvfb (two screens: X.Org's dummy driver) and openbox, the
# accessibility bus, xcompmgr, and weston's headless Wayland backend (see
# tests/desktop/run.sh). The packages come first: the configure step looks
# for Xlib and XTest.
DESKTOP_PACKAGES = xvfb xserver-xorg-core xserver-xorg-video-dummy openbox libx11-dev libxtst-dev \
	x11-utils procps dbus dbus-x11 at-spi2-core python3-pyatspi xcompmgr weston qtwayland5
test-desktop:
	@sh scripts/install-deps.sh $(DESKTOP_PACKAGES)
	$(MAKE) configure
	cmake --build $(BUILD) --parallel $(JOBS) --target desktop-tests tst_imagebutton tst_buttonstyles
	sh tests/desktop/run.sh $(BUILD)

# Windows, cross-built with mingw-w64 and run under wine, headless, with a
# wine prefix of its own (see tests/windows/run.sh). Always the quick check:
# the Qt-free Windows-only source (src/core/winplatform.cpp) and its test.
# Given a Qt for Windows (QT_WINDOWS=<.tar.xz or unpacked prefix>, a Qt 5),
# also the whole library (Orvane.dll), every test, the gallery and the
# consumer against the installed package, the whole suite under CTest on the
# "windows" platform plugin, and the DLL's exports compared with the Linux
# library's. The quick check lives in $(BUILD)/windows, the whole suite in
# $(WINDOWS_BUILD) (the unpacked Qt, the build tree, the wine prefix).
# test-windows-suite is the same with the shared Qt tarball as default.
WINDOWS_BUILD ?= build-windows
WINDOWS_PACKAGES = g++-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64 wine64 wine xz-utils
test-windows:
ifeq ($(QT_WINDOWS),)
	@sh scripts/install-deps.sh $(WINDOWS_PACKAGES)
	sh tests/windows/run.sh $(BUILD)/windows
else
	@[ "$(QT)" = 5 ] || { echo "test-windows builds against a Qt 5 for Windows: run it without QT=$(QT)"; exit 1; }
	@sh scripts/install-deps.sh $(WINDOWS_PACKAGES)
	$(MAKE) configure
	cmake --build $(BUILD) --parallel $(JOBS) --target Orvane
	JOBS=$(JOBS) sh tests/windows/run.sh $(WINDOWS_BUILD) "$(QT_WINDOWS)" "$(abspath $(BUILD))/src/libOrvane.so"
endif

test-windows-suite:
	$(MAKE) test-windows QT_WINDOWS="$(or $(QT_WINDOWS),$(CURDIR)/../shared/toolchains/qt5.15.8-mingw64-posix.tar.xz)"

demo: build
	cd $(BUILD) && ./examples/gallery/orvane-gallery

# The whole suite with AddressSanitizer and UndefinedBehaviorSanitizer, then
# the thread tests with ThreadSanitizer, each in a build tree of its own.
# Suppressions (Qt's own known reports only) are in tests/sanitizers/.
ASAN_BUILD ?= build-asan$(QT_SUFFIX)
TSAN_BUILD ?= build-tsan$(QT_SUFFIX)
SAN_CMAKE = -DCMAKE_BUILD_TYPE=Debug -DORVANE_BUILD_EXAMPLES=OFF $(QT_CMAKE)
check-sanitize: deps
	cmake -S . -B $(ASAN_BUILD) $(SAN_CMAKE) \
		"-DCMAKE_CXX_FLAGS=-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer"
	cmake --build $(ASAN_BUILD) --parallel $(JOBS)
	cd $(ASAN_BUILD) && \
		ASAN_OPTIONS=detect_leaks=1:abort_on_error=0:halt_on_error=1 \
		LSAN_OPTIONS=suppressions=$(CURDIR)/tests/sanitizers/lsan.supp:print_suppressions=0 \
		UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
		QT_QPA_PLATFORM=offscreen ctest --output-on-failure --parallel $(JOBS) -LE nosanitize
	cmake -S . -B $(TSAN_BUILD) $(SAN_CMAKE) "-DCMAKE_CXX_FLAGS=-fsanitize=thread -fno-omit-frame-pointer"
	cmake --build $(TSAN_BUILD) --parallel $(JOBS) --target thread-tests
	cd $(TSAN_BUILD) && \
		TSAN_OPTIONS=halt_on_error=1:second_deadlock_stack=1:suppressions=$(CURDIR)/tests/sanitizers/tsan.supp \
		QT_QPA_PLATFORM=offscreen ctest --output-on-failure -L threads

# The suite under valgrind's memcheck: no error and no definite leak, with
# suppressions for Qt and the platform only (tests/sanitizers/valgrind.supp).
# Slow; not part of CI. Reports land in build/Testing/Temporary/.
check-valgrind: build
	@sh scripts/install-deps.sh valgrind
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen QT_ENABLE_REGEXP_JIT=0 ctest -T memcheck --output-on-failure -LE nosanitize

# Every fuzz target for FUZZ_SECONDS each, with clang's libFuzzer,
# AddressSanitizer and UndefinedBehaviorSanitizer, in its own build tree.
FUZZ_BUILD ?= build-fuzz$(QT_SUFFIX)
FUZZ_SECONDS ?= 60
FUZZ_FLAGS = -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer
fuzz:
	@sh scripts/install-deps.sh clang libclang-rt-14-dev $(QT_PACKAGES)
	cmake -S . -B $(FUZZ_BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ $(QT_CMAKE) \
		-DORVANE_BUILD_FUZZERS=ON -DORVANE_BUILD_EXAMPLES=OFF -DORVANE_FUZZ_SECONDS=$(FUZZ_SECONDS) \
		"-DCMAKE_CXX_FLAGS=$(FUZZ_FLAGS)"
	cmake --build $(FUZZ_BUILD) --parallel $(JOBS) --target fuzzers
	cd $(FUZZ_BUILD) && ctest -L fuzz --output-on-failure

# Every benchmark in bench/, in an optimised build tree of its own.
BENCH_BUILD ?= build-bench$(QT_SUFFIX)
bench:
	@sh scripts/install-deps.sh libbenchmark-dev libssl-dev $(QT_PACKAGES)
	cmake -S . -B $(BENCH_BUILD) -DCMAKE_BUILD_TYPE=Release -DORVANE_BUILD_BENCHMARKS=ON $(QT_CMAKE) \
		-DORVANE_BUILD_EXAMPLES=OFF -DBUILD_TESTING=OFF
	cmake --build $(BENCH_BUILD) --parallel $(JOBS) --target run-benchmarks

# The API reference: Doxygen over the installed public headers, into
# $(BUILD)/docs/html, with Qt's classes linked through Qt's tag files. Any
# warning (an undocumented class, function, enumerator or field included)
# fails the run. Nothing is compiled.
docs:
	@sh scripts/install-deps.sh doxygen qtbase5-doc-html qtbase5-doc-dev $(QT_PACKAGES)
	$(MAKE) configure
	cmake --build $(BUILD) --target docs

# The ABI guard of the 1.x series (Qt 5 build): the installed library against
# the committed baseline abi/libOrvane.so.1.0.0.abi.xz (scripts/abi.sh). A
# removed or changed exported symbol, or a changed size or layout of a public
# class, fails with abidiff's report; additions pass. Then the guard's own test
# (tests/abi/guard_test.sh): an added function passes, a removed function and
# a changed class size fail.
ABI_BASELINE = abi/libOrvane.so.1.0.0.abi.xz
check-abi:
	@[ "$(QT)" = 5 ] || { echo "the ABI baseline is the Qt 5 library's: run make check-abi without QT=$(QT)"; exit 1; }
	@sh scripts/install-deps.sh abigail-tools xz-utils
	$(MAKE) configure
	cmake --build $(BUILD) --parallel $(JOBS) --target Orvane abi-variants
	sh scripts/abi.sh check $(BUILD) $(ABI_BASELINE)
	sh tests/abi/guard_test.sh $(BUILD) $(ABI_BASELINE)

# Rewrites the baseline from the current source (a RelWithDebInfo build, with
# debug information, installed into $(BUILD)/abi-stage). Only when a release
# deliberately sets a new baseline; commit the file it writes.
abi-baseline:
	@[ "$(QT)" = 5 ] || { echo "the ABI baseline is the Qt 5 library's: run make abi-baseline without QT=$(QT)"; exit 1; }
	@sh scripts/install-deps.sh abigail-tools xz-utils
	$(MAKE) configure BUILD_TYPE=RelWithDebInfo
	cmake --build $(BUILD) --parallel $(JOBS) --target Orvane
	sh scripts/abi.sh baseline $(BUILD) $(ABI_BASELINE)

# make install PREFIX=/some/where
PREFIX ?= /usr/local
install: build
	cmake --install $(BUILD) --prefix $(PREFIX)

# The Debian packages liborvane1 and liborvane-dev and a .tar.gz of both,
# in $(PACKAGE_BUILD)/packages/ (CPack, see cmake/OrvanePackaging.cmake).
# Built for /usr in a library-only tree of their own, with the qmake module
# in Qt's own mkspecs folder. QT=6 gives liborvane6-1 and liborvane6-dev.
PACKAGE_BUILD ?= build-package$(QT_SUFFIX)
QMAKE_FOR_QT = $(if $(filter 6,$(QT)),qmake6,qmake)
package: deps
	@sh scripts/install-deps.sh dpkg-dev file
	cmake -S . -B $(PACKAGE_BUILD) -DCMAKE_BUILD_TYPE=Release $(QT_CMAKE) $(CMAKE_FLAGS) \
		-DBUILD_TESTING=OFF -DORVANE_BUILD_EXAMPLES=OFF -DCMAKE_INSTALL_PREFIX=/usr -DORVANE_DEBIAN_DOCS=ON \
		"-DORVANE_INSTALL_MKSPECSDIR=$$($(QMAKE_FOR_QT) -query QT_HOST_DATA | sed 's|^/usr/||')/mkspecs/modules"
	cmake --build $(PACKAGE_BUILD) --parallel $(JOBS) --target Orvane
	rm -rf $(PACKAGE_BUILD)/packages
	cd $(PACKAGE_BUILD) && cpack
	ls -l $(PACKAGE_BUILD)/packages/*.deb $(PACKAGE_BUILD)/packages/*.tar.gz

# The packages as a new user meets them: both .debs installed with apt into
# a clean Debian 12 root (debootstrap, kept in /var/cache/orvane between
# runs), where the CMake, qmake and pkg-config host projects are built and
# run (tests/package/deb_chroot.sh). Needs root and Debian's mirror.
test-package: package
	@sh scripts/install-deps.sh debootstrap lintian
	sh tests/package/check_debs.sh $(PACKAGE_BUILD)/packages
	sh tests/package/deb_chroot.sh $(PACKAGE_BUILD)/packages .

# Redraws the PNG images, and their @2x twins, from their SVG sources.
images:
	@sh scripts/install-deps.sh librsvg2-bin
	sh resources/images/render.sh

# Refreshes the translation sources from the code; rewrites tracked files.
lupdate: configure
	cmake --build $(BUILD) --target lupdate

clean:
	rm -rf $(BUILD)
