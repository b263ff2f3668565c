# shortcut_search: plays variations of a level's solution, looking for a win
# that leaves more credits than the solution does.
add_executable(shortcut_search ${CMAKE_CURRENT_SOURCE_DIR}/shortcut_search.cpp)
if(DELVEMOOR_SANITIZE OR DELVEMOOR_FUZZ OR CMAKE_BUILD_TYPE STREQUAL "Debug")
  # The search plays a mission hundreds of times. Under the sanitizers and
  # coverage of the test tree each run is fifty times slower, so the search
  # gets a plain, optimised copy of the game code of its own: the same rules,
  # and the campaign's short search stays a matter of seconds a mission.
  add_library(shortcut_search_core STATIC EXCLUDE_FROM_ALL ${CORE_SOURCES} ${WINDOW_ICON_DATA})
  target_include_directories(shortcut_search_core PUBLIC
    $<TARGET_PROPERTY:delvemoor_core,INTERFACE_INCLUDE_DIRECTORIES>)
  target_include_directories(shortcut_search_core PRIVATE ${CMAKE_BINARY_DIR}/generated)
  target_compile_definitions(shortcut_search_core PUBLIC
    $<TARGET_PROPERTY:delvemoor_core,INTERFACE_COMPILE_DEFINITIONS>)
  target_link_libraries(shortcut_search_core PUBLIC PkgConfig::ALLEGRO OpenGL::GL OpenGL::GLU X11::X11)
  set_property(TARGET shortcut_search_core shortcut_search PROPERTY COMPILE_OPTIONS -Wall -Wextra -Werror -O2)
  set_property(TARGET shortcut_search_core shortcut_search PROPERTY LINK_OPTIONS "")
  target_link_libraries(shortcut_search PRIVATE shortcut_search_core)
else()
  target_link_libraries(shortcut_search PRIVATE delvemoor_core)
endif()

# A maintainer's whole search: every mission, a minute each, on every core;
# what it finds goes into levels/SHORTCUTS.tsv and from there into the
# campaign table.
find_program(SHORTCUT_SEARCH_PYTHON NAMES python3)
add_custom_target(campaign_search
  COMMAND ${SHORTCUT_SEARCH_PYTHON} ${CMAKE_SOURCE_DIR}/tools/campaign.py search
          --shortcut-search $<TARGET_FILE:shortcut_search> --seconds 60
          --record ${CMAKE_SOURCE_DIR}/levels/SHORTCUTS.tsv
  DEPENDS shortcut_search
  USES_TERMINAL)
