# GoogleTest where there is no library of it: from the sources that Debian's "googletest" installs.
find_path(ZLT_GOOGLETEST_SOURCES CMakeLists.txt
  PATHS /usr/src/googletest/googletest NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
add_subdirectory(${ZLT_GOOGLETEST_SOURCES} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
