# Installs the build into a private prefix, builds examples/consumer against
# that prefix only, and runs it. A cross build passes its toolchain
# (CROSS_ARGS), its Qt (QT_PREFIX), the program that runs its executables
# (EMULATOR) and the folder of the DLLs they need (RUNTIME).
set(prefix "${WORK_DIR}/prefix")
set(build "${WORK_DIR}/build")
file(REMOVE_RECURSE "${WORK_DIR}")

function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
    if(NOT rc EQUAL 0)
        message(FATAL_ERROR "failed (${rc}): ${ARGN}\n${out}\n${err}")
    endif()
    set(last_output "${out}" PARENT_SCOPE)
endfunction()

run("${CMAKE_COMMAND}" --install "${BUILD_DIR}" --prefix "${prefix}")
foreach(f include/Orvane/Orvane.h include/Orvane/orvane_export.h
          lib/cmake/Orvane/OrvaneConfig.cmake lib/cmake/Orvane/OrvaneConfigVersion.cmake
          lib/cmake/Orvane/OrvaneTargets.cmake)
    if(NOT EXISTS "${prefix}/${f}")
        message(FATAL_ERROR "not installed: ${f}")
    endif()
endforeach()

set(cross)
if(CROSS_ARGS)
    set(cross "${CROSS_ARGS}" "-DQt5_DIR=${QT_PREFIX}/lib/cmake/Qt5")
endif()
run("${CMAKE_COMMAND}" -S "${CONSUMER_SOURCE}" -B "${build}" -G "${CMAKE_GENERATOR}"
    "-DCMAKE_PREFIX_PATH=${prefix}" -DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF ${cross})
run("${CMAKE_COMMAND}" --build "${build}")
find_program(consumer NAMES orvane-consumer orvane-consumer.exe PATHS "${build}" NO_DEFAULT_PATH REQUIRED)
if(RUNTIME)
    # Deployed as on Windows: the installed Orvane.dll, Qt's DLLs, the
    # platform plugins and the compiler's runtime beside the program.
    file(COPY "${RUNTIME}/" "${prefix}/bin/Orvane.dll" DESTINATION "${build}")
endif()
run(${EMULATOR} "${consumer}")
# Under wine a Qt program's own output does not reach the pipe: there its
# exit code (0 only with the library's resources registered) is the result.
if(NOT EMULATOR AND NOT last_output MATCHES "Orvane 1\\.0\\.0\\([^)]*\\)")
    message(FATAL_ERROR "unexpected consumer output: ${last_output}")
endif()
message(STATUS "consumer said: ${last_output}")
