# Installs the build into a private prefix and builds the host application
# of tests/package/host/ against it twice, as qmake and pkg-config users
# would: a qmake project (QT += Orvane, the prefix given by QMAKEPATH) and a
# plain Makefile with pkg-config (PKG_CONFIG_PATH). Runs both and checks
# what they print and which library they load.
#   -DBUILD_DIR= -DPACKAGE=Orvane|Orvane6 -DQT_MAJOR=5|6 -DQMAKE=<Qt's qmake>
#   -DHOST_SOURCE=<tests/package/host> -DWORK_DIR=
include("${CMAKE_CURRENT_LIST_DIR}/package_helpers.cmake")
set(prefix "${WORK_DIR}/prefix")
file(REMOVE_RECURSE "${WORK_DIR}")
file(MAKE_DIRECTORY "${WORK_DIR}/qmake" "${WORK_DIR}/pkgconfig")
find_program(MAKE_PROGRAM NAMES make gmake REQUIRED NO_CACHE)
find_program(PKG_CONFIG NAMES pkg-config pkgconf REQUIRED NO_CACHE)

orvane_install_package("${BUILD_DIR}" "${prefix}" ${PACKAGE})
set(run_env "LD_LIBRARY_PATH=${prefix}/lib")

# qmake: the module is found through QMAKEPATH only.
execute_process(COMMAND "${CMAKE_COMMAND}" -E env "QMAKEPATH=${prefix}"
        "${QMAKE}" "${HOST_SOURCE}/host.pro"
    WORKING_DIRECTORY "${WORK_DIR}/qmake" RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT rc EQUAL 0 OR err MATCHES "Unknown module")
    message(FATAL_ERROR "qmake failed (${rc}):\n${out}\n${err}")
endif()
execute_process(COMMAND "${MAKE_PROGRAM}" WORKING_DIRECTORY "${WORK_DIR}/qmake"
    RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT rc EQUAL 0)
    message(FATAL_ERROR "make of the qmake project failed (${rc}):\n${out}\n${err}")
endif()
orvane_run("${CMAKE_COMMAND}" -E env ${run_env} "${WORK_DIR}/qmake/orvane-qmake-host")
orvane_check_host_program("${WORK_DIR}/qmake/orvane-qmake-host" "${prefix}" ${PACKAGE} ${QT_MAJOR} "${last_output}")
message(STATUS "qmake host said: ${last_output}")

# pkg-config: flags and libraries come from the .pc file only.
orvane_run("${CMAKE_COMMAND}" -E env "PKG_CONFIG_PATH=${prefix}/lib/pkgconfig"
    "${MAKE_PROGRAM}" -C "${WORK_DIR}/pkgconfig" -f "${HOST_SOURCE}/pkgconfig.mk"
    ORVANE=${PACKAGE} "PKG_CONFIG=${PKG_CONFIG}")
orvane_run("${CMAKE_COMMAND}" -E env ${run_env} "${WORK_DIR}/pkgconfig/orvane-pkgconfig-host")
orvane_check_host_program("${WORK_DIR}/pkgconfig/orvane-pkgconfig-host" "${prefix}" ${PACKAGE} ${QT_MAJOR} "${last_output}")
message(STATUS "pkg-config host said: ${last_output}")
