# Documents, and what CPack makes of the components: the program, the module with the stand-in's
# library, and the files that one builds a host or another module with.
set(documents ${CMAKE_INSTALL_DATADIR}/doc)
foreach(pair module:vardexscandata program:scanhost development:vardexscandata-dev)
  string(REPLACE ":" ";" pair ${pair})
  list(GET pair 0 component)
  list(GET pair 1 package)
  install(FILES LICENSE RENAME copyright DESTINATION ${documents}/${package} COMPONENT ${component})
  string(TOUPPER ${component} COMPONENT)
  set(CPACK_DEBIAN_${COMPONENT}_PACKAGE_NAME ${package})
  set(CPACK_DEBIAN_${COMPONENT}_FILE_NAME DEB-DEFAULT)
endforeach()
install(FILES README.md CHANGELOG.md DESTINATION ${documents}/vardexscandata COMPONENT module)
install(DIRECTORY docs DESTINATION ${documents}/vardexscandata COMPONENT module)
