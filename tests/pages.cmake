# The manual and the maker's page open offline: every link and picture in
# them resolves inside the game directory.
find_program(PAGES_PYTHON NAMES python3 PATHS /usr/bin NO_DEFAULT_PATH)
if(NOT PAGES_PYTHON)
  find_program(PAGES_PYTHON NAMES python3 REQUIRED)
endif()
add_test(NAME shipped_pages
  COMMAND ${PAGES_PYTHON} ${CMAKE_CURRENT_SOURCE_DIR}/check_pages.py ${GAME_DIR} manual.html about.html)
set_tests_properties(shipped_pages PROPERTIES ENVIRONMENT "${DELVEMOOR_TEST_ENV}" TIMEOUT 60)
