# The front-end flows draw through the real screens into an OSMesa context,
# linked first so its gl* entry points win (as for the pixel tests). They
# read the campaign from the build's datafile.
pkg_check_modules(OSMESA REQUIRED IMPORTED_TARGET osmesa)
if(TARGET test_frontend_flows)
  set_property(TARGET test_frontend_flows PROPERTY LINK_LIBRARIES
    PkgConfig::OSMESA delvemoor_core GTest::gtest GTest::gtest_main)
  if(TARGET datafile)
    add_dependencies(test_frontend_flows datafile)
  endif()
  set_tests_properties(test_frontend_flows PROPERTIES
    ENVIRONMENT "${DELVEMOOR_TEST_ENV};LP_NUM_THREADS=0")
endif()
