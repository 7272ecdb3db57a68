# One library per source folder, one test program per test folder.
# GCC 12 reports std::string and streambuf internals under -Wrestrict and -Wnull-dereference at -O2
# and above (false positives in the standard headers), so those two stay off.
set(LUPIN_WARNINGS -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast
    -Wcast-align -Woverloaded-virtual -Wimplicit-fallthrough $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)

function(lupin_apply_options target)
  target_compile_options(${target} PRIVATE ${LUPIN_WARNINGS})
  if(LUPIN_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(LUPIN_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=address,undefined -fno-omit-frame-pointer
                           -fno-sanitize-recover=undefined)
    target_link_options(${target} PRIVATE -fsanitize=address,undefined)
  endif()
endfunction()

# lupin_add_module(NAME folder DEPS lupin::x ... [PRIVATE_DEPS ...])
# Sources are every .cpp below the folder; headers are included as "folder/file.h" from src/.
function(lupin_add_module name)
  cmake_parse_arguments(ARG "" "" "DEPS;PRIVATE_DEPS" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  if(NOT sources)
    # A folder whose code has not landed yet still gives a linkable target.
    set(sources ${CMAKE_CURRENT_BINARY_DIR}/empty_${name}.cpp)
    file(WRITE ${sources} "")
  endif()
  add_library(lupin_${name} STATIC ${sources})
  add_library(lupin::${name} ALIAS lupin_${name})
  set_target_properties(lupin_${name} PROPERTIES LINKER_LANGUAGE CXX)
  target_include_directories(lupin_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(lupin_${name} PUBLIC ${ARG_DEPS} PRIVATE ${ARG_PRIVATE_DEPS})
  lupin_apply_options(lupin_${name})
endfunction()

# Leak checks ignore the process-lifetime caches of the font libraries.
set(LUPIN_TEST_ENVIRONMENT "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/lsan.supp")

# lupin_add_test(NAME folder DEPS ...): every .cpp of the folder is one GoogleTest program.
function(lupin_add_test name)
  cmake_parse_arguments(ARG "" "" "DEPS;LABELS" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  if(NOT sources)
    return()
  endif()
  add_executable(lupin_${name}_tests ${sources})
  target_link_libraries(lupin_${name}_tests PRIVATE ${ARG_DEPS} lupin::test_support GTest::gtest_main GTest::gmock)
  target_compile_definitions(lupin_${name}_tests PRIVATE
    LUPIN_SOURCE_DIR="${PROJECT_SOURCE_DIR}" LUPIN_GOLDEN_DIR="${PROJECT_SOURCE_DIR}/tests/golden")
  lupin_apply_options(lupin_${name}_tests)
  add_test(NAME ${name} COMMAND lupin_${name}_tests --gtest_brief=1)
  set_tests_properties(${name} PROPERTIES LABELS "${ARG_LABELS}" TIMEOUT 1200
    ENVIRONMENT "${LUPIN_TEST_ENVIRONMENT}")
endfunction()

function(lupin_add_bench name)
  cmake_parse_arguments(ARG "" "" "DEPS" ${ARGN})
  add_executable(bench_${name} ${ARG_UNPARSED_ARGUMENTS})
  target_link_libraries(bench_${name} PRIVATE ${ARG_DEPS} benchmark::benchmark)
  lupin_apply_options(bench_${name})
endfunction()
