# Compiles every header on its own, with the include roots of its layer and no others, so that none
# leans on what its users happen to include first. The target header_check is no part of the default
# build; the test headers_stand_alone builds it.
add_custom_target(header_check)

# vardex_check_headers(NAME FOLDERS folder... ROOTS include root... LIBRARIES target...)
function(vardex_check_headers name)
  cmake_parse_arguments(ARG "" "" "FOLDERS;ROOTS;LIBRARIES" ${ARGN})
  set(target header_check_${name})
  add_library(${target} OBJECT EXCLUDE_FROM_ALL)
  add_dependencies(header_check ${target})
  vardex_set_common(${target})
  list(TRANSFORM ARG_ROOTS PREPEND ${PROJECT_SOURCE_DIR}/)
  target_include_directories(${target} PRIVATE ${ARG_ROOTS})
  target_link_libraries(${target} PRIVATE ${ARG_LIBRARIES})
  foreach(folder ${ARG_FOLDERS})
    file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}
      ${PROJECT_SOURCE_DIR}/${folder}/*.h)
    foreach(header ${headers})
      set(source ${PROJECT_BINARY_DIR}/header_check/${header}.cpp)
      file(CONFIGURE OUTPUT ${source} CONTENT "#include \"@PROJECT_SOURCE_DIR@/${header}\"\n" @ONLY)
      target_sources(${target} PRIVATE ${source})
    endforeach()
  endforeach()
endfunction()

vardex_check_headers(values FOLDERS host/values ROOTS host/values)
vardex_check_headers(service FOLDERS host/service ROOTS host/service host/values)
vardex_check_headers(framework FOLDERS host/framework LIBRARIES host_framework)
vardex_check_headers(core
  FOLDERS vardex/pointset/core vardex/stance/core vardex/mobile/core vardex/trajectory/core
  ROOTS vardex host/values)
vardex_check_headers(module FOLDERS vardex LIBRARIES vardex_objects)
vardex_check_headers(formats FOLDERS formats LIBRARIES formats)
vardex_check_headers(scanhost FOLDERS scanhost LIBRARIES scanhost_lib PkgConfig::cairo)
vardex_check_headers(tests FOLDERS tests ROOTS tests LIBRARIES vardex_objects formats
  GTest::gmock)

add_test(NAME headers_stand_alone COMMAND
  ${CMAKE_COMMAND} --build ${PROJECT_BINARY_DIR} --target header_check)
set_tests_properties(headers_stand_alone PROPERTIES TIMEOUT 2400)
