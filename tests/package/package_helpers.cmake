# Shared by the package tests (cmake -P scripts): installing a build tree and
# building examples/consumer against an installed prefix.
#
# A cross build (for Windows) sets, before calling these, CROSS_ARGS (its
# toolchain arguments), QT_PREFIX (its Qt), EMULATOR (the program that runs
# its executables) and RUNTIME (the folder of the DLLs they need); left
# empty, everything is built and run natively.

function(orvane_run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
    if(NOT rc EQUAL 0)
        message(FATAL_ERROR "failed (${rc}): ${ARGN}\n${out}\n${err}")
    endif()
    set(last_output "${out}" PARENT_SCOPE)
endfunction()

# The files a package must install, relative to the prefix.
function(orvane_package_files package out)
    if(package STREQUAL "Orvane")
        set(inc include)
    else()
        set(inc include/${package})
    endif()
    set(module_files)
    if(CROSS_ARGS)
        set(library bin/${package}.dll)
    else()
        set(library lib/lib${package}.so.1)
        set(module_files mkspecs/modules/qt_${package}.pri lib/pkgconfig/${package}.pc)
    endif()
    set(${out}
        ${inc}/Orvane/Orvane.h ${inc}/Orvane/orvane_export.h
        ${library} ${module_files}
        lib/cmake/${package}/${package}Config.cmake
        lib/cmake/${package}/${package}ConfigVersion.cmake
        lib/cmake/${package}/${package}Targets.cmake
        PARENT_SCOPE)
endfunction()

function(orvane_install_package build_dir prefix package)
    orvane_run("${CMAKE_COMMAND}" --install "${build_dir}" --prefix "${prefix}")
    orvane_package_files(${package} files)
    foreach(f IN LISTS files)
        if(NOT EXISTS "${prefix}/${f}")
            message(FATAL_ERROR "${package}: not installed: ${f}")
        endif()
    endforeach()
endfunction()

# Builds examples/consumer in <build> with find_package(<package>) from
# <prefix> alone, runs it, and checks the library and Qt it reports.
function(orvane_check_consumer prefix package qt_major build)
    set(cross)
    if(CROSS_ARGS)
        set(cross ${CROSS_ARGS} "-DQt${qt_major}_DIR=${QT_PREFIX}/lib/cmake/Qt${qt_major}")
    endif()
    orvane_run("${CMAKE_COMMAND}" -S "${CONSUMER_SOURCE}" -B "${build}" -G "${CMAKE_GENERATOR}"
        "-DCMAKE_PREFIX_PATH=${prefix}" -DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF
        -DORVANE_PACKAGE=${package} ${cross})
    orvane_run("${CMAKE_COMMAND}" --build "${build}")
    find_program(consumer NAMES orvane-consumer orvane-consumer.exe PATHS "${build}"
        NO_DEFAULT_PATH REQUIRED NO_CACHE)
    if(RUNTIME)
        # Deployed as on Windows: the installed DLL, Qt's DLLs, the platform
        # plugins and the compiler's runtime beside the program.
        file(COPY "${RUNTIME}/" "${prefix}/bin/${package}.dll" DESTINATION "${build}")
    endif()
    orvane_run(${EMULATOR} "${consumer}")
    if(EMULATOR)
        # Under wine a Qt program's own output does not reach the pipe: there
        # its exit code (0 only with the library's resources registered) is
        # the result, and the DLL beside it is the one it loads.
        message(STATUS "${package} consumer ran under ${EMULATOR}")
        return()
    endif()
    orvane_check_host_program("${consumer}" "${prefix}" ${package} ${qt_major} "${last_output}")
    message(STATUS "${package} consumer said: ${last_output}")
endfunction()

# Checks what a host program built against <prefix> printed (the library
# version and the Qt it runs on, on its last line) and that it loads the
# library from <prefix>, not from anywhere else.
function(orvane_check_host_program program prefix package qt_major output)
    if(NOT output MATCHES "Orvane 1\\.0\\.0\\([^)]*\\) Qt ${qt_major}\\.[^\n]*\n?$")
        message(FATAL_ERROR "unexpected output of ${program}: ${output}")
    endif()
    file(GET_RUNTIME_DEPENDENCIES EXECUTABLES "${program}"
        RESOLVED_DEPENDENCIES_VAR deps DIRECTORIES "${prefix}/lib")
    list(FILTER deps INCLUDE REGEX "/lib${package}\\.so")
    if(NOT deps)
        message(FATAL_ERROR "${program} does not load lib${package}.so")
    endif()
    foreach(d IN LISTS deps)
        file(REAL_PATH "${d}" d)
        file(REAL_PATH "${prefix}/lib" libdir)
        if(NOT d MATCHES "^${libdir}/")
            message(FATAL_ERROR "${program} loads ${d}, not the one in ${prefix}")
        endif()
    endforeach()
endfunction()
