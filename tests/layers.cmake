# Every #include of the game's folders points down the layer order written in
# cmake/layers.txt.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
add_test(NAME layers
  COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_SOURCE_DIR}/check_layers.py ${CMAKE_SOURCE_DIR})
set_tests_properties(layers PROPERTIES TIMEOUT 60)
