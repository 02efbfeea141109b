# Build helpers shared by the library, its tests, examples and benchmarks.

# Warnings for the project's own targets (never for a consumer's).
function(orvane_set_warnings target)
    if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
        target_compile_options(${target} PRIVATE -Wall -Wextra)
        if(ORVANE_WERROR)
            target_compile_options(${target} PRIVATE -Werror)
        endif()
    elseif(MSVC)
        target_compile_options(${target} PRIVATE /W4)
        if(ORVANE_WERROR)
            target_compile_options(${target} PRIVATE /WX)
        endif()
    endif()
endfunction()

# Every public header lives in its source directory and is reached as
# <Orvane/name.h>: the build tree links it into include/Orvane, and the
# install puts it into <prefix>/include/Orvane (Qt 5) or
# <prefix>/include/Orvane6/Orvane (Qt 6).
set(ORVANE_BUILD_INCLUDE_DIR "${CMAKE_BINARY_DIR}/include" CACHE INTERNAL "")
file(MAKE_DIRECTORY "${ORVANE_BUILD_INCLUDE_DIR}/Orvane")

function(orvane_public_headers)
    foreach(header IN LISTS ARGN)
        get_filename_component(name "${header}" NAME)
        file(CREATE_LINK "${CMAKE_CURRENT_SOURCE_DIR}/${header}"
             "${ORVANE_BUILD_INCLUDE_DIR}/Orvane/${name}" SYMBOLIC COPY_ON_ERROR)
        target_sources(OrvaneObjects PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}/${header}")
        set_property(GLOBAL APPEND PROPERTY ORVANE_PUBLIC_HEADERS "${CMAKE_CURRENT_SOURCE_DIR}/${header}")
    endforeach()
    install(FILES ${ARGN} DESTINATION "${ORVANE_INSTALL_INCLUDEDIR}/Orvane" COMPONENT Devel)
endfunction()

# On Windows, gives <target> a VERSIONINFO resource: file and product version
# <version> (up to four numbers, the missing ones 0) and <description>.
#
#   orvane_version_resource(<target> <version> <description>)
function(orvane_version_resource target version description)
    if(NOT WIN32)
        return()
    endif()
    string(REPLACE "." ";" fields "${version}")
    list(APPEND fields 0 0 0 0)
    list(SUBLIST fields 0 4 fields)
    string(REPLACE ";" "," ORVANE_RC_FIELDS "${fields}")
    set(ORVANE_RC_VERSION "${version}")
    set(ORVANE_RC_DESCRIPTION "${description}")
    set(ORVANE_RC_NAME "${target}")
    get_target_property(type ${target} TYPE)
    if(type STREQUAL "SHARED_LIBRARY")
        set(ORVANE_RC_FILETYPE VFT_DLL)
        set(ORVANE_RC_FILENAME "${target}.dll")
    else()
        set(ORVANE_RC_FILETYPE VFT_APP)
        set(ORVANE_RC_FILENAME "${target}.exe")
    endif()
    set(rc "${CMAKE_CURRENT_BINARY_DIR}/${target}_version.rc")
    configure_file("${PROJECT_SOURCE_DIR}/cmake/versioninfo.rc.in" "${rc}" @ONLY)
    target_sources(${target} PRIVATE "${rc}")
endfunction()
