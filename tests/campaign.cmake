# The campaign's proof. Each mission in levels/maps is played from the
# datafile the build made: its solution must win it, doing nothing must not,
# and from the campaign's fourth mission on neither must the naive play (a
# hatcher over every pod, "Hatch Pods", then "Launch" clicked as fast as it
# answers), and a short shortcut search must find no win that leaves more
# than 100 credits above the solution's. The table levels/CAMPAIGN.md must be
# what its tool makes of the maps today: no two missions share a title, each
# planet's last five missions take more moves and leave less to spare than
# its first five, each planet opens harder than the one before and each
# finale is bigger than the one before.
set(CAMPAIGN_TOOL ${CMAKE_SOURCE_DIR}/tools/campaign.py)
set(CAMPAIGN_DATAFILE ${GAME_DIR}/DATA/DATA.DAT)
file(GLOB CAMPAIGN_MAPS CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/levels/maps/P*M*.map)
foreach(map ${CAMPAIGN_MAPS})
  get_filename_component(mission ${map} NAME_WE)
  add_test(NAME campaign_${mission}
    COMMAND ${DELVEMOOR_PYTHON} ${CAMPAIGN_TOOL} prove ${mission} --strict
            --levelcheck $<TARGET_FILE:levelcheck> --datafile ${CAMPAIGN_DATAFILE}
            --shortcut-search $<TARGET_FILE:shortcut_search>)
  set_tests_properties(campaign_${mission} PROPERTIES
    ENVIRONMENT "${DELVEMOOR_TEST_ENV}" TIMEOUT 300 LABELS campaign)
endforeach()

# The naive play must be a real player's, or the proof above proves nothing:
# it wins the first mission, whose whole idea is a hatcher and a launch.
add_test(NAME campaign_naive_play_wins_intro
  COMMAND sh -c "\"$0\" \"$1\" naive \"$2\" > naive.solution && \"$3\" P1M01_LEV naive.solution --datafile \"$4\""
          ${DELVEMOOR_PYTHON} ${CAMPAIGN_TOOL} ${CMAKE_SOURCE_DIR}/levels/maps/P1M01.map
          $<TARGET_FILE:levelcheck> ${CAMPAIGN_DATAFILE})
set_tests_properties(campaign_naive_play_wins_intro PROPERTIES
  ENVIRONMENT "${DELVEMOOR_TEST_ENV}" TIMEOUT 120 LABELS campaign
  PASS_REGULAR_EXPRESSION "P1M01_LEV: won after")

add_test(NAME campaign_table_current
  COMMAND ${DELVEMOOR_PYTHON} ${CAMPAIGN_TOOL} table --levelcheck $<TARGET_FILE:levelcheck>
          --check ${CMAKE_SOURCE_DIR}/levels/CAMPAIGN.md)
set_tests_properties(campaign_table_current PROPERTIES
  ENVIRONMENT "${DELVEMOOR_TEST_ENV}" TIMEOUT 900 LABELS campaign)

# The search must find a shortcut planted in a copy of a mission, and
# levelcheck must confirm the route it reports.
add_test(NAME shortcut_search_finds_planted_shortcut
  COMMAND ${DELVEMOOR_PYTHON} ${CMAKE_CURRENT_SOURCE_DIR}/shortcut_plant.py
          $<TARGET_FILE:shortcut_search> $<TARGET_FILE:levelcheck>)
set_tests_properties(shortcut_search_finds_planted_shortcut PROPERTIES
  ENVIRONMENT "${DELVEMOOR_TEST_ENV}" TIMEOUT 300 LABELS campaign)

# The tutorial missions are read from the datafile too.
if(TARGET test_tutorial_missions AND TARGET datafile)
  add_dependencies(test_tutorial_missions datafile)
endif()
