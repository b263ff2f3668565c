# Laying the game out for a system (cmake --install, make install):
#   <prefix>/lib/games/delvemoor/   the game folder, as build/game has it, read-only
#   <prefix>/games/delvemoor        the command, a link to the program there
#   <prefix>/share/applications/    the menu entries for the game and its manual
#   <prefix>/share/icons/hicolor/   the icon, drawn at each size
#   <prefix>/share/metainfo/        the software centres' description
#   <prefix>/share/man/man6/        the manual page
# The game folder holds programs, so it goes under lib/ rather than share/.
set(GAME_INSTALL_DIR lib/games/delvemoor)
set(GAME_INSTALL_PATH ${CMAKE_INSTALL_PREFIX}/${GAME_INSTALL_DIR})
set(LAUNCHER_PATH ${CMAKE_INSTALL_PREFIX}/games/delvemoor)
set(DESKTOP_SOURCE ${CMAKE_SOURCE_DIR}/desktop)
set(DESKTOP_BUILD ${CMAKE_BINARY_DIR}/desktop)

install(TARGETS Delvemoor GfxDriverTool RUNTIME DESTINATION ${GAME_INSTALL_DIR})
install(FILES ${GAME_DIR}/DATA/DATA.DAT DESTINATION ${GAME_INSTALL_DIR}/DATA)
install(FILES ${CMAKE_SOURCE_DIR}/assets/gamedir/gameconfig.cfg ${CMAKE_SOURCE_DIR}/docs/manual.html
              ${CMAKE_SOURCE_DIR}/docs/about.html ${DESKTOP_SOURCE}/installed-for-system.txt
        DESTINATION ${GAME_INSTALL_DIR})
file(GLOB INSTALLED_EXAMPLES CONFIGURE_DEPENDS
  ${CMAKE_SOURCE_DIR}/levels/custom/*.level ${CMAKE_SOURCE_DIR}/levels/custom/*.solution)
install(FILES ${INSTALLED_EXAMPLES} DESTINATION ${GAME_INSTALL_DIR}/custom)

# A relative link, so a staged tree (DESTDIR) works where it is unpacked.
file(MAKE_DIRECTORY ${DESKTOP_BUILD})
file(CREATE_LINK ../${GAME_INSTALL_DIR}/Delvemoor ${DESKTOP_BUILD}/delvemoor SYMBOLIC)
install(FILES ${DESKTOP_BUILD}/delvemoor DESTINATION games)

configure_file(${DESKTOP_SOURCE}/delvemoor.desktop.in ${DESKTOP_BUILD}/delvemoor.desktop @ONLY)
configure_file(${DESKTOP_SOURCE}/delvemoor-manual.desktop.in ${DESKTOP_BUILD}/delvemoor-manual.desktop @ONLY)
configure_file(${DESKTOP_SOURCE}/delvemoor.6 ${DESKTOP_BUILD}/delvemoor.6 @ONLY)
install(FILES ${DESKTOP_BUILD}/delvemoor.desktop ${DESKTOP_BUILD}/delvemoor-manual.desktop
        DESTINATION share/applications)
install(FILES ${DESKTOP_SOURCE}/io.github.delvemoor.Delvemoor.metainfo.xml DESTINATION share/metainfo)
install(FILES ${DESKTOP_BUILD}/delvemoor.6 DESTINATION share/man/man6)

# The icon at every size the desktops ask for, drawn by the asset generator.
set(ICON_THEME ${CMAKE_BINARY_DIR}/icons/hicolor)
add_custom_command(
  OUTPUT ${ICON_THEME}/256x256/apps/delvemoor.png
  COMMAND ${ICON_PYTHON} ${CMAKE_SOURCE_DIR}/tools/gen_assets/icon.py --theme ${ICON_THEME}
  DEPENDS ${ICON_SOURCES}
  COMMENT "Drawing the game's icon"
  VERBATIM)
add_custom_target(icons ALL DEPENDS ${ICON_THEME}/256x256/apps/delvemoor.png)
install(DIRECTORY ${ICON_THEME}/ DESTINATION share/icons/hicolor)
