# The level view drawn by the game's own code with the real datafile: the
# built-in sample (every terrain code, structure and sprite) and a campaign
# level must both come out as full pictures.
if(TARGET levelshot)
  add_test(NAME levelshot_pictures
    COMMAND bash ${CMAKE_CURRENT_SOURCE_DIR}/levelshot_check.sh $<TARGET_FILE:levelshot> ${CMAKE_BINARY_DIR}/levelshot)
  set_tests_properties(levelshot_pictures PROPERTIES ENVIRONMENT "${DELVEMOOR_TEST_ENV}" TIMEOUT 300)
endif()
