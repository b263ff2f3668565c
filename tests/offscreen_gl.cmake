# The tests that draw through the game's own code into an offscreen OSMesa
# context (support/offscreen_gl.h): real OpenGL without a display or
# AllegroGL. libOSMesa and libGL both export the gl* entry points and the
# first library loaded wins, so OSMesa is put at the head of the link line.
# One rasteriser thread keeps the software renderer's results and timing
# independent of the machine.
pkg_check_modules(OSMESA REQUIRED IMPORTED_TARGET osmesa)
foreach(name test_frontend_flows test_game_screen test_render_pixels test_every_pixel)
  if(TARGET ${name})
    set_property(TARGET ${name} PROPERTY LINK_LIBRARIES
      PkgConfig::OSMESA delvemoor_core GTest::gtest GTest::gtest_main)
    set_tests_properties(${name} PROPERTIES ENVIRONMENT "${DELVEMOOR_TEST_ENV};LP_NUM_THREADS=0")
  endif()
endforeach()
