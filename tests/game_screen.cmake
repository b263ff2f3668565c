# The game screen's test draws into an OSMesa context with the real datafile's
# pictures: OSMesa first on the link line (see pixels.cmake), and the datafile
# built before it runs.
if(NOT TARGET PkgConfig::OSMESA)
  pkg_check_modules(OSMESA REQUIRED IMPORTED_TARGET osmesa)
endif()
if(TARGET test_game_screen)
  set_property(TARGET test_game_screen PROPERTY LINK_LIBRARIES
    PkgConfig::OSMESA delvemoor_core GTest::gtest GTest::gtest_main)
  set_tests_properties(test_game_screen PROPERTIES
    ENVIRONMENT "${DELVEMOOR_TEST_ENV};LP_NUM_THREADS=0")
  if(TARGET datafile)
    add_dependencies(test_game_screen datafile)
  endif()
endif()
