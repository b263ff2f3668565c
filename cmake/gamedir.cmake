# The rest of the game directory: the shipped configuration (only when the
# player has none yet, so a rebuild never resets their settings) and the manual.
set(SHIPPED_CONFIG ${CMAKE_SOURCE_DIR}/assets/gamedir/gameconfig.cfg)
add_custom_command(
  OUTPUT ${GAME_DIR}/.config-placed
  COMMAND ${CMAKE_COMMAND} -DSRC=${SHIPPED_CONFIG} -DDST=${GAME_DIR}/gameconfig.cfg
          -P ${CMAKE_SOURCE_DIR}/cmake/copy_if_missing.cmake
  COMMAND ${CMAKE_COMMAND} -E touch ${GAME_DIR}/.config-placed
  DEPENDS ${SHIPPED_CONFIG}
  COMMENT "Placing gameconfig.cfg")
add_custom_command(
  OUTPUT ${GAME_DIR}/manual.html
  COMMAND ${CMAKE_COMMAND} -E copy ${CMAKE_SOURCE_DIR}/docs/manual.html ${GAME_DIR}/manual.html
  DEPENDS ${CMAKE_SOURCE_DIR}/docs/manual.html
  COMMENT "Placing manual.html")
add_custom_target(gamedir ALL DEPENDS ${GAME_DIR}/.config-placed ${GAME_DIR}/manual.html)
