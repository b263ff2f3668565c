# The first mission played through in the real window with the mouse.
add_test(NAME e2e_play
  COMMAND bash ${CMAKE_CURRENT_SOURCE_DIR}/e2e_play.sh ${GAME_DIR} ${CMAKE_BINARY_DIR}/e2e_play)
set_tests_properties(e2e_play PROPERTIES ENVIRONMENT "${DELVEMOOR_TEST_ENV}" TIMEOUT 600 RUN_SERIAL TRUE)
