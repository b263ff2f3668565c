# The rest of the game directory: the shipped configuration (only when the
# player has none yet, so a rebuild never resets their settings), the manual,
# the maker's page, and the example custom levels with their winning runs.
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
add_custom_command(
  OUTPUT ${GAME_DIR}/about.html
  COMMAND ${CMAKE_COMMAND} -E copy ${CMAKE_SOURCE_DIR}/docs/about.html ${GAME_DIR}/about.html
  DEPENDS ${CMAKE_SOURCE_DIR}/docs/about.html
  COMMENT "Placing about.html")
# The custom folder is the player's: a shipped example is placed only where no
# file of that name is, so a level the player changed or replaced survives
# every rebuild.
file(GLOB SHIPPED_CUSTOM_LEVELS CONFIGURE_DEPENDS
  ${CMAKE_SOURCE_DIR}/levels/custom/*.level ${CMAKE_SOURCE_DIR}/levels/custom/*.solution)
set(CUSTOM_PLACE_COMMANDS "")
foreach(level ${SHIPPED_CUSTOM_LEVELS})
  get_filename_component(name ${level} NAME)
  list(APPEND CUSTOM_PLACE_COMMANDS COMMAND ${CMAKE_COMMAND} -DSRC=${level} -DDST=${GAME_DIR}/custom/${name}
       -P ${CMAKE_SOURCE_DIR}/cmake/copy_if_missing.cmake)
endforeach()
add_custom_command(
  OUTPUT ${GAME_DIR}/.custom-placed
  COMMAND ${CMAKE_COMMAND} -E make_directory ${GAME_DIR}/custom
  ${CUSTOM_PLACE_COMMANDS}
  COMMAND ${CMAKE_COMMAND} -E touch ${GAME_DIR}/.custom-placed
  DEPENDS ${SHIPPED_CUSTOM_LEVELS}
  COMMENT "Placing the example custom levels")
add_custom_target(gamedir ALL DEPENDS ${GAME_DIR}/.config-placed ${GAME_DIR}/manual.html ${GAME_DIR}/about.html
  ${GAME_DIR}/.custom-placed)
