# The library's two embedded resource bundles, included from src/CMakeLists.txt.
#
# OrvaneResources holds the images under ":/Orvane/"; OrvaneLanguages the
# fifteen translation packs, compiled by lrelease from translations/*.ts.
# rcc runs through OrvaneRcc.cmake, which drops rcc's static initialiser:
# nothing is registered when the library loads, only by the exported
# qInitResources_* functions.

set(_res_dir "${PROJECT_SOURCE_DIR}/resources")

set(ORVANE_LANGUAGE_PACKS
    Hindi Turkish Italian Japanese Spanish Portuguese Arabic Korean German
    Indonesian Russian French Dutch zh_CN zh_TW)

set(_ts_files)
foreach(pack IN LISTS ORVANE_LANGUAGE_PACKS)
    list(APPEND _ts_files "${_res_dir}/translations/${pack}.ts")
endforeach()
set_source_files_properties(${_ts_files} PROPERTIES OUTPUT_LOCATION "${CMAKE_CURRENT_BINARY_DIR}/translations")
qt_add_translation(_language_qms ${_ts_files})

set(_lang_qrc "${CMAKE_CURRENT_BINARY_DIR}/translations/OrvaneLanguages.qrc")
set(_lang_entries "")
foreach(pack IN LISTS ORVANE_LANGUAGE_PACKS)
    string(APPEND _lang_entries "        <file>${pack}.qm</file>\n")
endforeach()
file(WRITE "${_lang_qrc}.in"
    "<RCC>\n    <qresource prefix=\"/Orvane\">\n${_lang_entries}    </qresource>\n</RCC>\n")
configure_file("${_lang_qrc}.in" "${_lang_qrc}" COPYONLY)

file(GLOB _images CONFIGURE_DEPENDS "${_res_dir}/images/*.png")

function(_orvane_bundle name qrc)
    set(out "${CMAKE_CURRENT_BINARY_DIR}/qrc_${name}.cpp")
    add_custom_command(OUTPUT "${out}"
        COMMAND "${CMAKE_COMMAND}" -DRCC=$<TARGET_FILE:${ORVANE_QT}::rcc> -DNAME=${name}
                -DQRC=${qrc} -DOUT=${out} -P "${PROJECT_SOURCE_DIR}/cmake/OrvaneRcc.cmake"
        DEPENDS "${qrc}" ${ARGN} "${PROJECT_SOURCE_DIR}/cmake/OrvaneRcc.cmake"
        COMMENT "Embedding resource bundle ${name}"
        VERBATIM)
    set_source_files_properties("${out}" PROPERTIES SKIP_AUTOMOC ON SKIP_AUTOUIC ON)
    target_sources(OrvaneObjects PRIVATE "${out}")
endfunction()

_orvane_bundle(OrvaneResources "${_res_dir}/OrvaneResources.qrc" ${_images})
_orvane_bundle(OrvaneLanguages "${_lang_qrc}" ${_language_qms})

# lupdate rewrites tracked files, so it runs only when asked for.
add_custom_target(lupdate
    COMMAND ${ORVANE_QT}::lupdate -no-obsolete "${PROJECT_SOURCE_DIR}/src" -ts ${_ts_files}
    WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}"
    COMMENT "Updating the translation sources from the library's code"
    VERBATIM)
