# The game as a system installs it: the staged layout checked file by file,
# then the installed command played from it, which needs that stage whole.
add_test(NAME install_layout
  COMMAND bash ${CMAKE_CURRENT_SOURCE_DIR}/install_layout.sh ${CMAKE_BINARY_DIR} ${CMAKE_BINARY_DIR}/install-stage)
set_tests_properties(install_layout PROPERTIES FIXTURES_SETUP installed_game TIMEOUT 300)
add_test(NAME e2e_install
  COMMAND bash ${CMAKE_CURRENT_SOURCE_DIR}/e2e_install.sh ${CMAKE_BINARY_DIR}/install-stage
          $<TARGET_FILE:close_window> ${CMAKE_BINARY_DIR}/e2e-install)
set_tests_properties(e2e_install PROPERTIES FIXTURES_REQUIRED installed_game
  ENVIRONMENT "${DELVEMOOR_TEST_ENV}" TIMEOUT 600)

add_test(NAME make_clean
  COMMAND bash ${CMAKE_CURRENT_SOURCE_DIR}/make_clean.sh ${CMAKE_SOURCE_DIR} ${CMAKE_BINARY_DIR}/make-clean)
