# GoogleTest for the cross build, compiled from the source that Debian's package googletest holds.
find_path(GTEST_SOURCE googlemock/CMakeLists.txt PATHS /usr/src/googletest NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(GTest REQUIRED_VARS GTEST_SOURCE)

if(GTest_FOUND AND NOT TARGET GTest::gmock)
  set(INSTALL_GTEST OFF)
  add_subdirectory(${GTEST_SOURCE} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
  foreach(library gtest gtest_main gmock)
    if(NOT TARGET GTest::${library})
      add_library(GTest::${library} ALIAS ${library})
    endif()
  endforeach()
endif()
