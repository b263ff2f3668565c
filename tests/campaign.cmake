# The campaign's proof. Each mission in levels/maps is played from the
# datafile the build made: its solution must win it, doing nothing must not,
# and from the campaign's fourth mission on neither must the naive play (a
# hatcher over every pod, "Hatch Pods", then "Launch" clicked as fast as it
# answers). The table levels/CAMPAIGN.md must be what its tool makes of the
# maps today: no two missions share a title, and each planet's last five
# missions take more moves and leave less to spare than its first five.
#
# These plays are hundreds of thousands of ticks. Under the sanitizers and
# without optimisation they took most of the suite's time, yet they check the
# missions, not the code: the code's memory and arithmetic are checked under
# the sanitizers by the unit tests, by levelcheck's own tests and by the
# shipped custom levels, which play the same tick with the sanitized build.
# So the proof plays with a second levelcheck, built from the same sources
# optimised and without sanitizers or fuzzer coverage. The simulation is
# whole numbers and plain float arithmetic, so both builds play each mission to
# the same tick and the same credits (the table below holds them to it).
set(CAMPAIGN_STRIPPED_FLAGS "^-fsanitize|^-fno-sanitize|^-fno-omit-frame-pointer")
get_directory_property(CAMPAIGN_COMPILE_OPTIONS COMPILE_OPTIONS)
get_directory_property(CAMPAIGN_LINK_OPTIONS LINK_OPTIONS)
list(FILTER CAMPAIGN_COMPILE_OPTIONS EXCLUDE REGEX "${CAMPAIGN_STRIPPED_FLAGS}")
list(FILTER CAMPAIGN_LINK_OPTIONS EXCLUDE REGEX "${CAMPAIGN_STRIPPED_FLAGS}")
add_library(delvemoor_core_optimised STATIC ${CORE_SOURCES})
add_executable(levelcheck_optimised ${CMAKE_SOURCE_DIR}/tools/levelcheck.cpp)
foreach(target delvemoor_core_optimised levelcheck_optimised)
  set_target_properties(${target} PROPERTIES
    COMPILE_OPTIONS "${CAMPAIGN_COMPILE_OPTIONS};-O2;-g0" LINK_OPTIONS "${CAMPAIGN_LINK_OPTIONS}")
  target_include_directories(${target} PRIVATE $<TARGET_PROPERTY:delvemoor_core,INTERFACE_INCLUDE_DIRECTORIES>)
  target_compile_definitions(${target} PRIVATE
    $<TARGET_PROPERTY:delvemoor_core,INTERFACE_COMPILE_DEFINITIONS> $<TARGET_PROPERTY:levelcheck,COMPILE_DEFINITIONS>)
endforeach()
target_link_libraries(levelcheck_optimised PRIVATE delvemoor_core_optimised
  $<TARGET_PROPERTY:delvemoor_core,INTERFACE_LINK_LIBRARIES>)
set(CAMPAIGN_LEVELCHECK $<TARGET_FILE:levelcheck_optimised>)

set(CAMPAIGN_TOOL ${CMAKE_SOURCE_DIR}/tools/campaign.py)
set(CAMPAIGN_DATAFILE ${GAME_DIR}/DATA/DATA.DAT)
file(GLOB CAMPAIGN_MAPS CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/levels/maps/P*M*.map)
foreach(map ${CAMPAIGN_MAPS})
  get_filename_component(mission ${map} NAME_WE)
  add_test(NAME campaign_${mission}
    COMMAND ${DELVEMOOR_PYTHON} ${CAMPAIGN_TOOL} prove ${mission} --strict
            --levelcheck ${CAMPAIGN_LEVELCHECK} --datafile ${CAMPAIGN_DATAFILE})
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
  COMMAND ${DELVEMOOR_PYTHON} ${CAMPAIGN_TOOL} table --levelcheck ${CAMPAIGN_LEVELCHECK}
          --check ${CMAKE_SOURCE_DIR}/levels/CAMPAIGN.md)
set_tests_properties(campaign_table_current PROPERTIES
  ENVIRONMENT "${DELVEMOOR_TEST_ENV}" TIMEOUT 900 LABELS campaign)
