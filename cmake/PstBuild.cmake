# How everything of this project is compiled, and the functions that its folders use.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR})
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(PSTOLVANE1_CCACHE ccache)
if(PSTOLVANE1_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${PSTOLVANE1_CCACHE})
endif()

add_library(pst_flags INTERFACE)
target_include_directories(pst_flags INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(pst_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wundef -Werror)

if(PSTOLVANE1_TOGETHER GREATER 1)
  find_package(Python3 REQUIRED COMPONENTS Interpreter)
endif()

# pst_compile_together(TARGET): compiles its sources in groups of at most PSTOLVANE1_TOGETHER, which
# takes a third of the time. Each source means what it means alone: cmake/groups.py sees to it.
function(pst_compile_together target)
  if(NOT PSTOLVANE1_TOGETHER GREATER 1)
    return()
  endif()
  get_target_property(sources ${target} SOURCES)
  list(FILTER sources INCLUDE REGEX "^[^$].*\\.cpp$")
  execute_process(
    COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/cmake/groups.py
            ${PROJECT_SOURCE_DIR} ${PSTOLVANE1_TOGETHER} ${sources}
    WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR}
    OUTPUT_VARIABLE lines OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  string(REPLACE "\n" ";" lines "${lines}")
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
  foreach(line IN LISTS lines)
    string(REPLACE " " ";" line "${line}")
    list(GET line 0 group)
    list(GET line 1 source)
    set_source_files_properties(${source} PROPERTIES UNITY_GROUP ${target}_${group})
  endforeach()
endfunction()

# pst_library(NAME [SOURCES files...] LINK targets...): one folder of the library, without SOURCES all
# files of it. What it may reach is what it links; scripts/lint holds the includes against the same
# order.
function(pst_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  if(NOT ARG_SOURCES)
    file(GLOB ARG_SOURCES CONFIGURE_DEPENDS *.cpp)
  endif()
  add_library(${name} STATIC ${ARG_SOURCES})
  target_compile_options(${name} PRIVATE ${PSTOLVANE1_LIBRARY_FLAGS})
  pst_compile_together(${name})
  target_link_libraries(${name} PUBLIC ${ARG_LINK} PRIVATE $<BUILD_INTERFACE:pst_flags>)
  set_property(GLOBAL APPEND PROPERTY PST_LIBRARIES ${name})
endfunction()

# What the sanitizers are told of libraries that are not ours.
set(PST_TEST_ENVIRONMENT
  "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/leaks.txt:print_suppressions=0"
  "TSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/races.txt")

# pst_test(NAME [SERVER] [THREADS] [SHARDS n] SOURCES files... LINK targets...): one test program,
# which ctest runs as a whole, or as n runs that share its cases. With SERVER it has the throw-away
# PostgreSQL server of tests/server. Those with THREADS run under the thread sanitizer as well.
add_custom_target(threads_tests)
function(pst_test name)
  cmake_parse_arguments(ARG "SERVER;THREADS" "SHARDS" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  pst_compile_together(${name})
  target_link_libraries(${name} PRIVATE ${ARG_LINK} test_files GTest::gtest_main GTest::gmock pst_flags)
  set(environment ${PST_TEST_ENVIRONMENT})
  set(properties TIMEOUT 1800)
  set(labels "")
  if(ARG_SERVER)
    target_link_libraries(${name} PRIVATE test_server)
    list(APPEND properties FIXTURES_REQUIRED postgres)
    list(APPEND environment "PST_POSTGRES=${PST_POSTGRES}")
  endif()
  if(ARG_THREADS)
    add_dependencies(threads_tests ${name})
    list(APPEND labels threads)
  endif()
  if(NOT ARG_SHARDS)
    set(ARG_SHARDS 1)
  endif()
  # ctest starts those of a high cost first, so that no long one is left for the end.
  list(APPEND properties COST ${ARG_SHARDS})
  math(EXPR last "${ARG_SHARDS} - 1")
  foreach(shard RANGE ${last})
    set(run ${name})
    if(last GREATER 0)
      math(EXPR number "${shard} + 1")
      set(run ${name}_${number}_of_${ARG_SHARDS})
    endif()
    add_test(NAME ${run} COMMAND ${name} --gtest_brief=1)
    set_tests_properties(${run} PROPERTIES ${properties} LABELS "${labels}" ENVIRONMENT
      "${environment};GTEST_TOTAL_SHARDS=${ARG_SHARDS};GTEST_SHARD_INDEX=${shard}")
  endforeach()
endfunction()

# pst_bench(NAME SOURCES files... LINK targets...): one Google Benchmark program.
function(pst_bench name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LINK} benchmark::benchmark pst_flags)
endfunction()

# pst_fuzz(NAME SOURCES files... LINK targets...): one fuzz target; its corpus is fuzz/corpus/NAME.
function(pst_fuzz name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_compile_options(${name} PRIVATE -fsanitize=fuzzer)
  target_link_libraries(${name} PRIVATE ${ARG_LINK} pst_flags)
  target_link_options(${name} PRIVATE -fsanitize=fuzzer)
  add_dependencies(fuzz_targets ${name})
endfunction()
