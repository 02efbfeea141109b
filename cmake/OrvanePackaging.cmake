# `make package` (CPack): two Debian packages cut along the install
# components, and one .tar.gz with everything.
#   liborvane1     Runtime: the shared library (its translations and images
#                  are compiled in)
#   liborvane-dev  Devel: headers, the libOrvane.so link, the CMake package,
#                  the qmake module and the pkg-config file
# Debian package names are lower case (dpkg lowers any other). The Qt 6
# build's packages are liborvane6-1 and liborvane6-dev, so that both can be
# installed together, as their files can.
# The runtime package's dependencies on Debian's Qt (libqt5widgets5, ...)
# and the C++ runtime come from dpkg-shlibdeps, with the versions its
# symbols need; the development package depends on the runtime package of
# exactly this version and on Qt's development package.
# Packages for a system are built with CMAKE_INSTALL_PREFIX=/usr (see the
# Makefile's `package` target), so that the library lands in Debian's
# multiarch folder and the qmake module in Qt's own mkspecs folder.

string(TOLOWER "${ORVANE_PACKAGE}" _orvane_lower)
if(ORVANE_QT_MAJOR EQUAL 5)
    set(_orvane_runtime_package lib${_orvane_lower}${PROJECT_VERSION_MAJOR})
    set(_orvane_qt_dev qtbase5-dev)
else()
    set(_orvane_runtime_package lib${_orvane_lower}-${PROJECT_VERSION_MAJOR})
    set(_orvane_qt_dev qt6-base-dev)
endif()
set(_orvane_dev_package lib${_orvane_lower}-dev)

set(CPACK_PACKAGE_NAME ${ORVANE_PACKAGE})
set(CPACK_PACKAGE_VENDOR "Orvane")
set(CPACK_PACKAGE_CONTACT "Orvane maintainers <orvane@orvane.example>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_HOMEPAGE_URL "http://www.orvane.example/")
set(CPACK_GENERATOR DEB TGZ)
set(CPACK_PACKAGE_DIRECTORY "${CMAKE_BINARY_DIR}/packages")
set(CPACK_COMPONENTS_ALL Runtime Devel)
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
set(CPACK_STRIP_FILES ON)

# The tarball holds both components, laid out under the install prefix.
set(CPACK_ARCHIVE_COMPONENT_INSTALL OFF)
set(CPACK_SOURCE_GENERATOR "")

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(_orvane_deb_version "${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${_orvane_runtime_package})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
# The shlibs file and the ldconfig trigger Debian asks for are written here
# (CPack's own shlibs switch gives no trigger). CPack still adds postinst
# and postrm scripts that call ldconfig; lintian warns about them, and
# empty scripts of our own would only trade that for another warning.
set(_orvane_control "${CMAKE_BINARY_DIR}/debian-control")
file(MAKE_DIRECTORY "${_orvane_control}")
file(WRITE "${_orvane_control}/shlibs"
    "lib${ORVANE_PACKAGE} ${PROJECT_VERSION_MAJOR} ${_orvane_runtime_package} (>= ${PROJECT_VERSION})\n")
file(WRITE "${_orvane_control}/triggers" "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${_orvane_control}/shlibs;${_orvane_control}/triggers")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# Debian's descriptions: a synopsis line, then the long text.
set(_orvane_about
"Frameless skinned dialogs with a drawn title bar, a message box, image
buttons, eliding and spinning labels, a catalogue of image slices, the
application's locale and the library's translations, product web links,
a logger, version information and an AES codec.
.")
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION
"Orvane Qt ${ORVANE_QT_MAJOR} user-interface library
${_orvane_about}
This package holds the shared library.")

set(CPACK_DEBIAN_DEVEL_PACKAGE_NAME ${_orvane_dev_package})
set(CPACK_DEBIAN_DEVEL_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVEL_PACKAGE_DEPENDS
    "${_orvane_runtime_package} (= ${_orvane_deb_version}), ${_orvane_qt_dev}")
set(CPACK_DEBIAN_DEVEL_DESCRIPTION
"Orvane Qt ${ORVANE_QT_MAJOR} user-interface library - development files
${_orvane_about}
This package holds the headers and the files that find the library from
CMake (find_package(${ORVANE_PACKAGE})), qmake (QT += ${ORVANE_PACKAGE})
and pkg-config (${ORVANE_PACKAGE}).")

# Each Debian package carries its copyright file and a Debian changelog in
# /usr/share/doc/<package>/. Only the package build installs them
# (-DORVANE_DEBIAN_DOCS=ON from `make package`).
option(ORVANE_DEBIAN_DOCS "Install the Debian packages' copyright and changelog files" OFF)
if(ORVANE_DEBIAN_DOCS)
    set(ORVANE_DEB_VERSION ${_orvane_deb_version})
    foreach(component IN ITEMS Runtime Devel)
        string(TOUPPER ${component} upper)
        set(ORVANE_DEB_PACKAGE ${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
        set(doc "${CMAKE_BINARY_DIR}/debian-doc/${ORVANE_DEB_PACKAGE}")
        configure_file("${PROJECT_SOURCE_DIR}/cmake/debian/changelog.in" "${doc}/changelog.Debian" @ONLY)
        execute_process(COMMAND gzip -9nf "${doc}/changelog.Debian" RESULT_VARIABLE rc)
        if(NOT rc EQUAL 0)
            message(FATAL_ERROR "gzip failed on ${doc}/changelog.Debian")
        endif()
        install(FILES "${doc}/changelog.Debian.gz" "${PROJECT_SOURCE_DIR}/cmake/debian/copyright"
            DESTINATION "${CMAKE_INSTALL_DATAROOTDIR}/doc/${ORVANE_DEB_PACKAGE}" COMPONENT ${component})
    endforeach()
endif()

include(CPack)
