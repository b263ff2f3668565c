# levelcheck: proves a level solvable by playing its solution headless.
add_executable(levelcheck ${CMAKE_CURRENT_SOURCE_DIR}/levelcheck.cpp)
target_link_libraries(levelcheck PRIVATE delvemoor_core)
target_compile_definitions(levelcheck PRIVATE LEVELCHECK_DATAFILE="${GAME_DIR}/DATA/DATA.DAT")
