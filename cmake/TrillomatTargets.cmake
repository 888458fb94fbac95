# How the project's own libraries, programs and tests are made: one place for warnings, sanitizers
# and include folders.

add_library(trillomat_options INTERFACE)
target_include_directories(trillomat_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_options(trillomat_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 sees overlapping copies in std::string assignments that cannot overlap (GCC bug 105651).
  target_compile_options(trillomat_options INTERFACE -Wno-restrict)
endif()
if(TRILLOMAT_SANITIZE)
  add_compile_options(-fsanitize=${TRILLOMAT_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${TRILLOMAT_SANITIZE})
endif()

# trillomat_library(NAME SOURCES...): the static library of the folder src/NAME.
function(trillomat_library name)
  add_library(trillomat_${name} STATIC ${ARGN})
  target_link_libraries(trillomat_${name} PUBLIC trillomat_options)
endfunction()

# trillomat_compiled_alone(SOURCES...): sources with private names that others of their folder have too, which
# a unity build (several sources compiled as one) has to leave as they are.
function(trillomat_compiled_alone)
  set_source_files_properties(${ARGN} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()

# trillomat_test(NAME LIBRARIES... SOURCES *_test.cpp...): a GoogleTest program known to ctest.
function(trillomat_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LIBRARIES;SOURCES")
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_compile_definitions(${name} PRIVATE TEST_DATA_DIR="${PROJECT_SOURCE_DIR}/tests/data")
  target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} trillomat_options GTest::gmock GTest::gtest_main)
  if(CMAKE_CROSSCOMPILING)
    # A start under an emulator costs more than most tests, so here a program is one test.
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT 900)
  else()
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300)
  endif()
endfunction()
