# CLI11 is headers alone, so the build machine's do for the cross build; but their folder, /usr/include,
# must not be searched for anything else. A link to them in the build directory is.
find_path(CLI11_HEADERS CLI/CLI.hpp PATHS /usr/include NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(CLI11 REQUIRED_VARS CLI11_HEADERS)

if(CLI11_FOUND AND NOT TARGET CLI11::CLI11)
  file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/include)
  file(CREATE_LINK ${CLI11_HEADERS}/CLI ${PROJECT_BINARY_DIR}/include/CLI SYMBOLIC)
  add_library(CLI11::CLI11 INTERFACE IMPORTED GLOBAL)
  target_include_directories(CLI11::CLI11 INTERFACE ${PROJECT_BINARY_DIR}/include)
endif()
