# The level readers under libFuzzer: a custom level is whatever a player
# hands the game. Runs for a bounded time as part of the test suite, starting
# from the small seed levels in corpus/levels (kept read-only; what the fuzzer
# finds goes to a scratch corpus in the build tree).
if(DELVEMOOR_FUZZ)
  set(FUZZ_FLAGS -fsanitize=fuzzer,address,undefined -fno-sanitize-recover=undefined)
  add_executable(fuzz_levels ${CMAKE_CURRENT_SOURCE_DIR}/fuzz_levels.cpp)
  target_compile_options(fuzz_levels PRIVATE ${FUZZ_FLAGS})
  target_link_options(fuzz_levels PRIVATE ${FUZZ_FLAGS})
  target_link_libraries(fuzz_levels PRIVATE delvemoor_core)

  set(FUZZ_LEVELS_SCRATCH ${CMAKE_CURRENT_BINARY_DIR}/fuzz_levels_corpus)
  file(MAKE_DIRECTORY ${FUZZ_LEVELS_SCRATCH})
  add_test(NAME fuzz_levels
    COMMAND fuzz_levels -max_total_time=30 -rss_limit_mb=2048 -timeout=10 -max_len=8192
            -print_final_stats=1 ${FUZZ_LEVELS_SCRATCH} ${CMAKE_CURRENT_SOURCE_DIR}/corpus/levels)
  set_tests_properties(fuzz_levels PROPERTIES ENVIRONMENT "${DELVEMOOR_TEST_ENV}" TIMEOUT 180)
endif()
