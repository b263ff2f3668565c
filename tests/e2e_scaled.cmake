# The real game on a 1920 x 1080 screen: its window enlarged, a mission won
# through it.
add_test(NAME e2e_scaled
  COMMAND bash ${CMAKE_CURRENT_SOURCE_DIR}/e2e_scaled.sh ${GAME_DIR} $<TARGET_FILE:close_window>
          ${CMAKE_BINARY_DIR}/e2e-scaled)
set_tests_properties(e2e_scaled PROPERTIES ENVIRONMENT "${DELVEMOOR_TEST_ENV}" TIMEOUT 600 COST 60)
