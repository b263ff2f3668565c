# The Debian package, built by dpkg-buildpackage from a copy of the sources
# and checked by lintian: a release build of its own, about a minute of both
# cores, so it has a label of its own (ctest -L deb, or -LE deb to leave it out).
add_test(NAME deb_package
  COMMAND bash ${CMAKE_CURRENT_SOURCE_DIR}/deb_package.sh ${CMAKE_SOURCE_DIR} ${CMAKE_BINARY_DIR}/deb)
set_tests_properties(deb_package PROPERTIES LABELS deb TIMEOUT 1200 PROCESSORS 2)
