# levelshot: the level view drawn by the game's own code into an offscreen
# OSMesa context and saved as a PNG (see assets/README.md). libOSMesa and
# libGL both export the gl* entry points and the first library loaded wins,
# so OSMesa goes first on the link line. Without OSMesa the tool is skipped.
pkg_check_modules(LEVELSHOT_OSMESA IMPORTED_TARGET osmesa)
if(LEVELSHOT_OSMESA_FOUND)
  add_executable(levelshot ${CMAKE_CURRENT_SOURCE_DIR}/levelshot.cpp)
  target_link_libraries(levelshot PRIVATE PkgConfig::LEVELSHOT_OSMESA delvemoor_core)
  target_compile_definitions(levelshot PRIVATE LEVELSHOT_GAME_DIR="${GAME_DIR}")
else()
  message(STATUS "OSMesa not found: levelshot is not built")
endif()
