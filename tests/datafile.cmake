# The tests that read the DATA/DATA.DAT the build makes.
if(TARGET datafile)
  foreach(name test_datafile test_tutorial_missions test_frontend_flows test_game_screen)
    if(TARGET ${name})
      add_dependencies(${name} datafile)
    endif()
  endforeach()
endif()
