# One function per kind of target, so that every folder states only what it holds and what it uses.

include(CompilerWarnings)
include(Sanitizers)

# What holds for every target: exact arithmetic, warnings, sanitizers, hidden symbols.
function(vardex_set_common target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  # Products and sums stay separate roundings: text output and polar angles are exact to the bit.
  target_compile_options(${target} PRIVATE -ffp-contract=off)
  set_target_properties(${target} PROPERTIES
    CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON POSITION_INDEPENDENT_CODE ON)
  vardex_set_warnings(${target})
  vardex_set_sanitizers(${target})
endfunction()

# What holds for every part of the loadable module: without -fno-gnu-unique one make_shared would
# keep the module mapped after it is closed, and its static destructors would run only at exit.
# Only GCC makes such symbols and knows the option.
function(vardex_keep_unloadable target)
  target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>)
endfunction()

# A static library of the loadable module.
function(vardex_add_module_layer target)
  add_library(${target} STATIC)
  vardex_set_common(${target})
  set_target_properties(${target} PROPERTIES LINKER_LANGUAGE CXX)
  target_compile_definitions(${target} PRIVATE VARDEX_BUILDING)
  vardex_keep_unloadable(${target})
  # Exported classes call their own helpers in the inner loops of the host: without this option such
  # a call would have to go through the linkage table and could not be inlined.
  target_compile_options(${target} PRIVATE -fno-semantic-interposition)
  target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR}/vardex)
endfunction()

# A test program: sources beside the caller, registered case by case with CTest.
# vardex_add_tests(TARGET SOURCES file... LIBRARIES target... [LABELS label])
function(vardex_add_tests target)
  cmake_parse_arguments(ARG "" "LABELS" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${target} ${ARG_SOURCES})
  vardex_set_common(${target})
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${target} PRIVATE ${ARG_LIBRARIES} GTest::gmock GTest::gtest_main)
  gtest_discover_tests(${target} DISCOVERY_TIMEOUT 120
    PROPERTIES TIMEOUT 300 LABELS "${ARG_LABELS}")
endfunction()

# A benchmark program, one per claim of docs/benchmarks.md.
function(vardex_add_benchmark target)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${target} ${ARG_SOURCES})
  vardex_set_common(${target})
  target_include_directories(${target} PRIVATE
    ${PROJECT_SOURCE_DIR}/bench ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${target} PRIVATE ${ARG_LIBRARIES} benchmark::benchmark_main)
endfunction()
