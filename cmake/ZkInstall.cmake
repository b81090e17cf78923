# Installs the DLLs, their import libraries, the headers and a CMake package:
# find_package(zkshell CONFIG) gives zkshell::zkcore and zkshell::zkshell.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

install(TARGETS zkcore zkshell zkmain EXPORT zkshellTargets
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})

# The base library's bodies stay inside it: its public face is base/.
foreach(dir base app controls dialogs browse streams graphics filters)
  install(DIRECTORY ${dir}/ DESTINATION include/zkshell/${dir}
    FILES_MATCHING PATTERN "*.h" PATTERN "library.h" EXCLUDE PATTERN "bindingtable.h" EXCLUDE)
endforeach()
install(FILES zkshell.h DESTINATION include/zkshell)

install(EXPORT zkshellTargets NAMESPACE zkshell::
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/zkshell)
configure_package_config_file(cmake/zkshellConfig.cmake.in
  ${CMAKE_BINARY_DIR}/zkshellConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/zkshell)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/zkshellConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/zkshellConfig.cmake
  ${CMAKE_BINARY_DIR}/zkshellConfigVersion.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/zkshell)
