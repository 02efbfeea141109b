# Shared by the package tests (cmake -P scripts): installing a build tree and
# building examples/consumer against an installed prefix.

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
    set(${out}
        ${inc}/Orvane/Orvane.h ${inc}/Orvane/orvane_export.h
        lib/lib${package}.so.1
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
    orvane_run("${CMAKE_COMMAND}" -S "${CONSUMER_SOURCE}" -B "${build}" -G "${CMAKE_GENERATOR}"
        "-DCMAKE_PREFIX_PATH=${prefix}" -DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF
        -DORVANE_PACKAGE=${package})
    orvane_run("${CMAKE_COMMAND}" --build "${build}")
    find_program(consumer NAMES orvane-consumer PATHS "${build}" NO_DEFAULT_PATH REQUIRED NO_CACHE)
    orvane_run("${consumer}")
    if(NOT last_output MATCHES "Orvane 1\\.0\\.0\\([^)]*\\) Qt ${qt_major}\\.")
        message(FATAL_ERROR "unexpected output of the ${package} consumer: ${last_output}")
    endif()
    file(GET_RUNTIME_DEPENDENCIES EXECUTABLES "${consumer}"
        RESOLVED_DEPENDENCIES_VAR deps DIRECTORIES "${prefix}/lib")
    list(FILTER deps INCLUDE REGEX "/lib${package}\\.so")
    if(NOT deps)
        message(FATAL_ERROR "the ${package} consumer does not load lib${package}.so")
    endif()
    foreach(d IN LISTS deps)
        file(REAL_PATH "${d}" d)
        file(REAL_PATH "${prefix}/lib" libdir)
        if(NOT d MATCHES "^${libdir}/")
            message(FATAL_ERROR "the ${package} consumer loads ${d}, not the one in ${prefix}")
        endif()
    endforeach()
    message(STATUS "${package} consumer said: ${last_output}")
endfunction()
