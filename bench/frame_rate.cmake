add_executable(frame_rate ${CMAKE_CURRENT_SOURCE_DIR}/frame_rate.cpp)
target_link_libraries(frame_rate PRIVATE delvemoor_core)
