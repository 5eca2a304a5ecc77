# The distribution has GoogleTest for its own system as a library, for others as sources.
find_path(googletest NAMES src/gtest-all.cc PATHS /usr/src/googletest/googletest NO_DEFAULT_PATH
          REQUIRED)
add_library(gtest STATIC ${googletest}/src/gtest-all.cc)
target_include_directories(gtest SYSTEM PUBLIC ${googletest}/include PRIVATE ${googletest})
# The compiler has no threads there.
target_compile_definitions(gtest PUBLIC GTEST_IS_THREADSAFE=0)
target_compile_options(gtest PUBLIC "SHELL:-include ${CMAKE_CURRENT_LIST_DIR}/no_death_tests.h"
                             PRIVATE -w)
add_library(gtest_main STATIC ${googletest}/src/gtest_main.cc)
target_link_libraries(gtest_main PUBLIC gtest)
add_library(GTest::gtest ALIAS gtest)
add_library(GTest::gtest_main ALIAS gtest_main)
