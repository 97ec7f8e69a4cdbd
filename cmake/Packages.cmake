# Documents, and the Debian packages that CPack makes of the installed components: the module with
# the stand-in's library, the program, and what one builds a host or another module with.
set(document_folder ${CMAKE_INSTALL_DATADIR}/doc)
install(FILES README.md CHANGELOG.md DESTINATION ${document_folder}/vardexscandata COMPONENT module)
install(DIRECTORY docs DESTINATION ${document_folder}/vardexscandata COMPONENT module)

set(CPACK_GENERATOR DEB)
set(CPACK_COMPONENTS_ALL module program development)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "The VardexScandata developers <developers@example.invalid>")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
# Dependencies are those of the linked libraries. The stand-in's own library is in no package yet
# when they are looked up; the packages name each other below.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(same_version "(= ${PROJECT_VERSION})")

# vardex_describe_package(COMPONENT PACKAGE SUMMARY DEPENDENCIES)
function(vardex_describe_package component package summary dependencies)
  install(FILES LICENSE RENAME copyright DESTINATION ${document_folder}/${package}
    COMPONENT ${component})
  string(TOUPPER ${component} key)
  set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${package} PARENT_SCOPE)
  set(CPACK_COMPONENT_${key}_DESCRIPTION ${summary} PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_PACKAGE_DEPENDS ${dependencies} PARENT_SCOPE)
endfunction()
vardex_describe_package(module vardexscandata
  "hand-held SLAM scanner data for a point-cloud host\n The module, and a small stand-in of its host."
  "")
vardex_describe_package(program scanhost
  "command-line host for hand-held SLAM scanner data\n Imports, shows, draws, asks, sorts and exports scans and projects."
  "vardexscandata ${same_version}, fonts-dejavu-core")
vardex_describe_package(development vardexscandata-dev
  "hand-held SLAM scanner data, development files\n Headers and CMake packages of the module and of the stand-in of its host."
  "vardexscandata ${same_version}, libjsoncpp-dev")
# The program carries three.js for the pages that it writes.
install(FILES scanhost/view/three-licence.txt DESTINATION ${document_folder}/scanhost
  COMPONENT program)
include(CPack)
