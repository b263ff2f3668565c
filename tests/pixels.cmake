# The pixel tests draw through the game's own primitives into an OSMesa
# context: real OpenGL without a display or AllegroGL. libOSMesa and libGL
# both export the gl* entry points and the first library loaded wins, so
# OSMesa is put at the head of the link line; the test reads pixels back to
# prove its calls reached OSMesa.
pkg_check_modules(OSMESA REQUIRED IMPORTED_TARGET osmesa)
if(TARGET test_render_pixels)
  set_property(TARGET test_render_pixels PROPERTY LINK_LIBRARIES
    PkgConfig::OSMESA delvemoor_core GTest::gtest GTest::gtest_main)
  # One rasteriser thread keeps the software renderer's results and timing
  # independent of the machine.
  set_tests_properties(test_render_pixels PROPERTIES
    ENVIRONMENT "${DELVEMOOR_TEST_ENV};LP_NUM_THREADS=0")
endif()
