# SPDX-License-Identifier: GPL-3.0-or-later
# GoogleTest from its sources, which Debian brings with the package for its own system.
find_path(GTEST_SOURCES src/gtest-all.cc PATHS /usr/src/googletest/googletest NO_CMAKE_FIND_ROOT_PATH REQUIRED)
foreach(part gtest-all gtest_main)
  add_library(korvane_${part} STATIC ${GTEST_SOURCES}/src/${part}.cc)
  target_include_directories(korvane_${part} PRIVATE ${GTEST_SOURCES})
  target_include_directories(korvane_${part} SYSTEM PUBLIC ${GTEST_SOURCES}/include)
endforeach()
add_library(GTest::gtest ALIAS korvane_gtest-all)
add_library(GTest::gtest_main ALIAS korvane_gtest_main)
set(GTest_FOUND TRUE)
