# The pixel tests draw through the game's own primitives into an OSMesa
# context: real OpenGL without a display or AllegroGL. libOSMesa and libGL
# both export the gl* entry points and the first library loaded wins, so
# OSMesa is put at the head of the link line; the test reads pixels back to
# prove its calls reached OSMesa. test_every_pixel draws every screen with the
# game's own pictures.
pkg_check_modules(OSMESA REQUIRED IMPORTED_TARGET osmesa)
foreach(pixelTest test_render_pixels test_every_pixel)
  if(TARGET ${pixelTest})
    set_property(TARGET ${pixelTest} PROPERTY LINK_LIBRARIES
      PkgConfig::OSMESA delvemoor_core GTest::gtest GTest::gtest_main)
    # One rasteriser thread keeps the software renderer's results and timing
    # independent of the machine.
    set_tests_properties(${pixelTest} PROPERTIES
      ENVIRONMENT "${DELVEMOOR_TEST_ENV};LP_NUM_THREADS=0")
  endif()
endforeach()
