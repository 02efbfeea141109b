# The Qt 5 and the Qt 6 build installed into one prefix: neither writes a file
# the other installs, and examples/consumer builds and runs against each.
#   -DSOURCE_DIR= -DBUILD_DIR=<this, Qt 6, build> -DQT5_BUILD_DIR=<Qt 5 build, may be empty>
#   -DCONSUMER_SOURCE= -DWORK_DIR= -DLAUNCHER=<compiler launcher, may be empty>
cmake_policy(VERSION 3.16)
include("${CMAKE_CURRENT_LIST_DIR}/package_helpers.cmake")
file(REMOVE_RECURSE "${WORK_DIR}/prefix5" "${WORK_DIR}/prefix6" "${WORK_DIR}/both" "${WORK_DIR}/consumer5"
     "${WORK_DIR}/consumer6")

# The Qt 5 library comes from the Qt 5 build tree when there is one (CI runs
# the Qt 5 suite first), else from a library-only build of its own.
if(QT5_BUILD_DIR AND EXISTS "${QT5_BUILD_DIR}/CMakeCache.txt")
    file(STRINGS "${QT5_BUILD_DIR}/CMakeCache.txt" major REGEX "^ORVANE_QT_MAJOR:")
    if(NOT major MATCHES "=5$")
        message(FATAL_ERROR "${QT5_BUILD_DIR} is not a Qt 5 build (${major})")
    endif()
    set(qt5_build "${QT5_BUILD_DIR}")
else()
    set(qt5_build "${WORK_DIR}/qt5-library")
    orvane_run("${CMAKE_COMMAND}" -S "${SOURCE_DIR}" -B "${qt5_build}" -G "${CMAKE_GENERATOR}"
        -DORVANE_QT_MAJOR=5 -DBUILD_TESTING=OFF -DORVANE_BUILD_EXAMPLES=OFF
        -DCMAKE_BUILD_TYPE=RelWithDebInfo "-DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER}")
endif()
orvane_run("${CMAKE_COMMAND}" --build "${qt5_build}" --target Orvane)

# Each alone, to know what each installs.
orvane_install_package("${qt5_build}" "${WORK_DIR}/prefix5" Orvane)
orvane_install_package("${BUILD_DIR}" "${WORK_DIR}/prefix6" Orvane6)
file(GLOB_RECURSE files5 LIST_DIRECTORIES false RELATIVE "${WORK_DIR}/prefix5" "${WORK_DIR}/prefix5/*")
file(GLOB_RECURSE files6 LIST_DIRECTORIES false RELATIVE "${WORK_DIR}/prefix6" "${WORK_DIR}/prefix6/*")
set(shared ${files5})
list(FILTER shared INCLUDE REGEX ".")
foreach(f IN LISTS shared)
    if(NOT f IN_LIST files6)
        list(REMOVE_ITEM shared "${f}")
    endif()
endforeach()
if(shared)
    message(FATAL_ERROR "both packages install these files:\n${shared}")
endif()

# Then both into one prefix, Qt 5 first: every file of each is still its own.
orvane_install_package("${qt5_build}" "${WORK_DIR}/both" Orvane)
orvane_install_package("${BUILD_DIR}" "${WORK_DIR}/both" Orvane6)
foreach(pair IN ITEMS "5;${files5}" "6;${files6}")
    list(POP_FRONT pair n)
    foreach(f IN LISTS pair)
        file(SHA256 "${WORK_DIR}/prefix${n}/${f}" want)
        file(SHA256 "${WORK_DIR}/both/${f}" got)
        if(NOT want STREQUAL got)
            message(FATAL_ERROR "${f} of the Qt ${n} package differs in the shared prefix")
        endif()
    endforeach()
endforeach()

orvane_check_consumer("${WORK_DIR}/both" Orvane 5 "${WORK_DIR}/consumer5")
orvane_check_consumer("${WORK_DIR}/both" Orvane6 6 "${WORK_DIR}/consumer6")
