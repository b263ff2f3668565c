# campaign_sheet: every mission in one picture, each drawn whole by levelshot
# through the game's own level view (build/campaign_sheet.png). Made on
# demand, not with every build: it draws a few hundred frames. The fragments
# are read in name order, so levelshot's own is read before this one.
if(TARGET levelshot)
  find_program(CAMPAIGN_PYTHON NAMES python3 PATHS /usr/bin NO_DEFAULT_PATH)
  add_custom_target(campaign_sheet
    COMMAND ${CAMPAIGN_PYTHON} ${CMAKE_SOURCE_DIR}/tools/campaign.py sheet
            --levelshot $<TARGET_FILE:levelshot>
            --out ${CMAKE_BINARY_DIR}/campaign_sheet.png --work ${CMAKE_BINARY_DIR}/campaign_sheet
    COMMENT "Drawing every campaign mission into campaign_sheet.png"
    VERBATIM)
  add_dependencies(campaign_sheet levelshot datafile)
endif()
