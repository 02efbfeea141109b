# The API reference (`make docs`, target "docs"): Doxygen over exactly the
# headers that are installed, as a host sees them (<Orvane/name.h>), plus the
# main page, into <build>/docs/html. docs/Doxyfile.in is the configuration;
# any warning fails the run.
find_program(ORVANE_DOXYGEN doxygen)
get_property(_headers GLOBAL PROPERTY ORVANE_PUBLIC_HEADERS)
set(_inputs "\"${PROJECT_SOURCE_DIR}/docs/mainpage.dox\"")
foreach(header IN LISTS _headers)
    get_filename_component(name "${header}" NAME)
    string(APPEND _inputs " \\\n    \"${ORVANE_BUILD_INCLUDE_DIR}/Orvane/${name}\"")
endforeach()
string(APPEND _inputs " \\\n    \"${ORVANE_BUILD_INCLUDE_DIR}/Orvane/orvane_export.h\"")
set(ORVANE_DOCS_INPUT "${_inputs}")
set(ORVANE_DOCS_DIR "${CMAKE_BINARY_DIR}/docs")

# Qt's own reference, where Debian ships it (qtbase5-doc-html with the tag
# files of qtbase5-doc-dev): Qt's classes in signatures and text link there.
set(_tagfiles)
foreach(module qtcore qtgui qtwidgets)
    set(tags "/usr/share/qt5/doc/${module}/${module}.tags")
    if(EXISTS "${tags}")
        string(APPEND _tagfiles " \\\n    \"${tags}=/usr/share/qt5/doc/${module}\"")
    endif()
endforeach()
set(ORVANE_DOCS_TAGFILES "${_tagfiles}")

configure_file("${PROJECT_SOURCE_DIR}/docs/Doxyfile.in" "${ORVANE_DOCS_DIR}/Doxyfile" @ONLY)
if(ORVANE_DOXYGEN)
    add_custom_target(docs
        COMMAND "${CMAKE_COMMAND}" -E rm -rf "${ORVANE_DOCS_DIR}/html"
        COMMAND "${ORVANE_DOXYGEN}" "${ORVANE_DOCS_DIR}/Doxyfile"
        COMMAND "${CMAKE_COMMAND}" -E echo "API reference: ${ORVANE_DOCS_DIR}/html/index.html"
        WORKING_DIRECTORY "${ORVANE_DOCS_DIR}"
        VERBATIM)
else()
    add_custom_target(docs
        COMMAND "${CMAKE_COMMAND}" -E echo "doxygen is not installed: make docs installs it"
        COMMAND "${CMAKE_COMMAND}" -E false
        VERBATIM)
endif()
