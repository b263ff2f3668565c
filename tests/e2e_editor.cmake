# The level editor end to end: the real game in Xvfb, from the main menu to a
# saved level that the selection screen lists and starts.
find_program(SYSTEM_PYTHON NAMES python3 PATHS /usr/bin NO_DEFAULT_PATH)
add_test(NAME e2e_editor
  COMMAND ${SYSTEM_PYTHON} ${CMAKE_CURRENT_SOURCE_DIR}/e2e_editor.py ${GAME_DIR} ${CMAKE_BINARY_DIR}/e2e_editor)
set_tests_properties(e2e_editor PROPERTIES ENVIRONMENT "${DELVEMOOR_TEST_ENV}" TIMEOUT 600 COST 100)
