# The load benchmark finds the game directory of this build by default.
if(TARGET bench_load)
  target_compile_definitions(bench_load PRIVATE DELVEMOOR_BUILD_GAME_DIR="${GAME_DIR}")
endif()
