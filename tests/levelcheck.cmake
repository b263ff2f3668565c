# levelcheck on a small level with its winning solution, and on the same level
# with a solution that never finishes it: the exit status must tell them
# apart (1 for the second, not a crash).
set(LEVELCHECK_DATA ${CMAKE_CURRENT_SOURCE_DIR}/sim_data)
add_test(NAME levelcheck_wins
  COMMAND levelcheck ${LEVELCHECK_DATA}/lift.level ${LEVELCHECK_DATA}/lift.solution)
add_test(NAME levelcheck_unfinished
  COMMAND sh -c "\"$0\" \"$1\" \"$2\" --ticks 3000; test $? -eq 1"
          $<TARGET_FILE:levelcheck> ${LEVELCHECK_DATA}/lift.level ${LEVELCHECK_DATA}/lift_fails.solution)
set_tests_properties(levelcheck_wins levelcheck_unfinished PROPERTIES
  ENVIRONMENT "${DELVEMOOR_TEST_ENV}" TIMEOUT 60)
# The output is checked as well as the status: only a win prints "won".
set_tests_properties(levelcheck_wins PROPERTIES PASS_REGULAR_EXPRESSION "lift.level: won after 806 ticks")
