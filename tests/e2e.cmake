# The real executable in a real X server (Xvfb), from a scratch copy of the
# game directory, and the fatal paths without a display or with damaged files.
# Each end-to-end run has an X server (-displayfd picks a free display) and a
# work folder of its own, and waits in frames the game shows rather than in
# seconds, so they run beside each other and beside the unit tests. A fresh
# tree has no timings for ctest to order by: COST (about their seconds) starts
# the long runs, which mostly wait on the game's own clock, first, and the
# short tests fill the other core beside them.
find_package(X11 REQUIRED)
add_executable(close_window close_window.cpp)
target_link_libraries(close_window PRIVATE X11::X11)

add_test(NAME e2e_game
  COMMAND bash ${CMAKE_CURRENT_SOURCE_DIR}/e2e_game.sh ${GAME_DIR} $<TARGET_FILE:close_window>
          ${CMAKE_BINARY_DIR}/e2e)
set_tests_properties(e2e_game PROPERTIES ENVIRONMENT "${DELVEMOOR_TEST_ENV}" TIMEOUT 600 COST 130)

add_test(NAME e2e_xsession
  COMMAND bash ${CMAKE_CURRENT_SOURCE_DIR}/e2e_xsession.sh ${GAME_DIR} $<TARGET_FILE:close_window>
          ${CMAKE_BINARY_DIR}/e2e_xsession)
set_tests_properties(e2e_xsession PROPERTIES ENVIRONMENT "${DELVEMOOR_TEST_ENV}" TIMEOUT 600)
