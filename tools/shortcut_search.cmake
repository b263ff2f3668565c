# shortcut_search: plays variations of a level's solution, looking for a win
# that leaves more credits than the solution does.
add_executable(shortcut_search ${CMAKE_CURRENT_SOURCE_DIR}/shortcut_search.cpp)
if(TARGET delvemoor_core_optimised)
  # The search plays a mission hundreds of times: in the test tree it takes
  # the optimised copy of the game code, so the campaign's short search stays
  # a matter of seconds a mission.
  link_optimised_core(shortcut_search)
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
