# Every example custom level the game ships is won by the winning run kept
# beside it, as the campaign's missions are, and none has a flaw the checker warns of.
file(GLOB SHIPPED_CUSTOM_LEVELS CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/levels/custom/*.level)
foreach(level ${SHIPPED_CUSTOM_LEVELS})
  get_filename_component(stem ${level} NAME_WE)
  get_filename_component(dir ${level} DIRECTORY)
  add_test(NAME custom_level_${stem}
    COMMAND levelcheck ${level} ${dir}/${stem}.solution --strict)
  set_tests_properties(custom_level_${stem} PROPERTIES
    ENVIRONMENT "${DELVEMOOR_TEST_ENV}" TIMEOUT 120 PASS_REGULAR_EXPRESSION "${stem}.level: won after")
endforeach()
