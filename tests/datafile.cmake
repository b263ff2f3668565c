# The datafile test reads the DATA/DATA.DAT the build makes.
if(TARGET test_datafile AND TARGET datafile)
  add_dependencies(test_datafile datafile)
endif()
