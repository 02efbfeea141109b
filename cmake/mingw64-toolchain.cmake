# Cross-builds for 64-bit Windows with Debian's mingw-w64 compilers in their
# posix thread model (the model the Qt for Windows was built with).
#
#   cmake -DCMAKE_TOOLCHAIN_FILE=cmake/mingw64-toolchain.cmake \
#         -DCMAKE_PREFIX_PATH=<Qt for Windows prefix> ...
#
# Qt's host tools (moc, rcc) come from the Qt for Windows' bin/, lrelease
# and lupdate from the Linux Qt. ORVANE_WINE names the command (a CMake
# list) that runs the tests, e.g. "sh;tests/windows/wine-run.sh".
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(_mingw x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${_mingw}-gcc-posix)
set(CMAKE_CXX_COMPILER ${_mingw}-g++-posix)
set(CMAKE_RC_COMPILER ${_mingw}-windres)

# Libraries and headers of the target only; programs (and the Linux
# LinguistTools package) from the host.
set(CMAKE_FIND_ROOT_PATH /usr/${_mingw})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)

if(ORVANE_WINE)
    set(CMAKE_CROSSCOMPILING_EMULATOR "${ORVANE_WINE}")
endif()

# The Linux Qt's lrelease/lupdate package (Debian's multiarch folder), of the
# Qt major version the build asks for (ORVANE_QT_MAJOR, 5 by default).
if(NOT ORVANE_QT_MAJOR)
    set(ORVANE_QT_MAJOR 5)
endif()
execute_process(COMMAND uname -m OUTPUT_VARIABLE _host_arch OUTPUT_STRIP_TRAILING_WHITESPACE)
set(Qt${ORVANE_QT_MAJOR}LinguistTools_DIR
    "/usr/lib/${_host_arch}-linux-gnu/cmake/Qt${ORVANE_QT_MAJOR}LinguistTools" CACHE PATH
    "The host's LinguistTools package")
