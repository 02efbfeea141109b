# Installs the build into a private prefix, builds examples/consumer against
# that prefix only, and runs it.
#   -DBUILD_DIR= -DPACKAGE=Orvane|Orvane6 -DQT_MAJOR=5|6 -DCONSUMER_SOURCE= -DWORK_DIR=
# A cross build also passes -DCROSS_ARGS= -DQT_PREFIX= -DEMULATOR= -DRUNTIME=
# (see package_helpers.cmake).
include("${CMAKE_CURRENT_LIST_DIR}/package_helpers.cmake")
set(prefix "${WORK_DIR}/prefix")
file(REMOVE_RECURSE "${WORK_DIR}")

orvane_install_package("${BUILD_DIR}" "${prefix}" ${PACKAGE})
orvane_check_consumer("${prefix}" ${PACKAGE} ${QT_MAJOR} "${WORK_DIR}/build")
