# levelcheck's warnings: a level cut short is reported, --strict refuses it
# with status 2 before running it, and a sound level passes --strict.
add_test(NAME levelcheck_strict
  COMMAND sh ${CMAKE_CURRENT_SOURCE_DIR}/levelcheck_strict.sh $<TARGET_FILE:levelcheck>
          ${CMAKE_CURRENT_SOURCE_DIR}/sim_data ${CMAKE_BINARY_DIR}/levelcheck_strict)
set_tests_properties(levelcheck_strict PROPERTIES ENVIRONMENT "${DELVEMOOR_TEST_ENV}" TIMEOUT 120)
