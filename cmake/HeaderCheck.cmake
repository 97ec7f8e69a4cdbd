# Compiles every header of code and tests on its own, so that none leans on what its users happen to include first.
# The target header_check is no part of the default build; the test headers_stand_alone builds it.
function(vardex_add_header_check)
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}
    ${PROJECT_SOURCE_DIR}/host/*.h ${PROJECT_SOURCE_DIR}/module/*.h
    ${PROJECT_SOURCE_DIR}/dataobj/*.h ${PROJECT_SOURCE_DIR}/pointset/*.h
    ${PROJECT_SOURCE_DIR}/stance/*.h ${PROJECT_SOURCE_DIR}/mobile/*.h
    ${PROJECT_SOURCE_DIR}/trajectory/*.h ${PROJECT_SOURCE_DIR}/scanhost/*.h
    ${PROJECT_SOURCE_DIR}/tests/*.h)
  add_library(header_check OBJECT EXCLUDE_FROM_ALL)
  vardex_set_common(header_check)
  target_include_directories(header_check PRIVATE
    ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/scanhost)
  target_link_libraries(header_check PRIVATE vardex_objects CLI11::CLI11 GTest::gmock PNG::PNG)
  foreach(header ${headers})
    set(source ${PROJECT_BINARY_DIR}/header_check/${header}.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "#include \"@PROJECT_SOURCE_DIR@/${header}\"\n" @ONLY)
    target_sources(header_check PRIVATE ${source})
  endforeach()
  add_test(NAME headers_stand_alone COMMAND
    ${CMAKE_COMMAND} --build ${PROJECT_BINARY_DIR} --target header_check)
  set_tests_properties(headers_stand_alone PROPERTIES TIMEOUT 2400)
endfunction()
