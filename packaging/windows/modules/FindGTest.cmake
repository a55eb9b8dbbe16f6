# Debian has no GoogleTest for MinGW: it is built from the sources of the package googletest.
if(NOT TARGET GTest::gtest)
  set(INSTALL_GTEST OFF)
  add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
endif()
set(GTest_FOUND TRUE)
