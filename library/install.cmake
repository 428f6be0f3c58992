# The library for programs that are built against it: headers, a CMake package, pkg-config.
include(CMakePackageConfigHelpers)

install(TARGETS TKSplDrv EXPORT TKSplDrv
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY ${CMAKE_SOURCE_DIR}/include/TKSplDrv DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/TKSplDrv)
install(EXPORT TKSplDrv FILE TKSplDrvConfig.cmake NAMESPACE TKSplDrv:: DESTINATION ${package_folder})
write_basic_package_version_file(TKSplDrvConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/TKSplDrvConfigVersion.cmake DESTINATION ${package_folder})

if(WIN32)
  install(FILES ${PLATFORM_IMPORT_LIBRARY} DESTINATION ${CMAKE_INSTALL_LIBDIR})
else()
  configure_file(TKSplDrv.pc.in TKSplDrv.pc @ONLY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/TKSplDrv.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endif()
