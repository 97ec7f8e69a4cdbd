# Where things are installed. The module and the stand-in's library lie in a folder of their own,
# VARDEX_INSTALL_MODULEDIR: nobody but a host looks there.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
set(VARDEX_INSTALL_MODULEDIR ${CMAKE_INSTALL_LIBDIR}/vardexscandata)
set(VARDEX_INSTALL_FULL_MODULEDIR ${CMAKE_INSTALL_FULL_LIBDIR}/vardexscandata)

# The libraries of the host that docs/host-contract.md names, each a target VardexHost::NAME.
set(VARDEX_HOST_LIBRARIES GuiFramework TqBase HxBase HxLib OvrPointSetPlugin PlexaScanPlugin
  Ovr.Interfaces Ovr.DataStructures Ovr.VardexLib)

# Installs the targets of the export set NAMETargets as the CMake package NAME, to be found by
# find_package from any prefix.
function(vardex_install_package name)
  set(folder ${CMAKE_INSTALL_LIBDIR}/cmake/${name})
  configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/${name}Config.cmake.in
    ${PROJECT_BINARY_DIR}/${name}Config.cmake INSTALL_DESTINATION ${folder}
    NO_SET_AND_CHECK_MACRO)
  write_basic_package_version_file(${PROJECT_BINARY_DIR}/${name}ConfigVersion.cmake
    COMPATIBILITY SameMinorVersion)
  install(FILES ${PROJECT_BINARY_DIR}/${name}Config.cmake
    ${PROJECT_BINARY_DIR}/${name}ConfigVersion.cmake
    DESTINATION ${folder} COMPONENT development)
  install(EXPORT ${name}Targets NAMESPACE ${name}:: DESTINATION ${folder} COMPONENT development)
endfunction()
