# cpack makes the zip for Windows hosts from build/windows and the Debian package from build/native.
set(CPACK_PACKAGE_NAME irvela)
set(CPACK_PACKAGE_VENDOR Irvela)
set(CPACK_PACKAGE_CONTACT "Irvela <support@irvela.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_DESCRIPTION "\
Reads archives, current values, parameters and logs of the instruments over
serial lines and TCP serial gateways, and simulates the instruments. The driver
comes as a library with headers for programs that are built against it.")
set(CPACK_RESOURCE_FILE_README ${CMAKE_SOURCE_DIR}/README.md)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)

# The Debian packages of the libraries whose code is in the programs.
set(notice_packages libasio-dev libcli11-dev libfmt-dev nlohmann-json3-dev libsoci-dev libsqlite3-dev)

set(documents ${CMAKE_SOURCE_DIR}/README.md ${CMAKE_SOURCE_DIR}/CHANGELOG.md)
set(references ${CMAKE_SOURCE_DIR}/docs/binary-interface.md
  ${CMAKE_SOURCE_DIR}/docs/output-records.md ${CMAKE_SOURCE_DIR}/docs/records.md
  ${CMAKE_SOURCE_DIR}/docs/raw-file.md ${CMAKE_SOURCE_DIR}/docs/store.md)
if(WIN32)
  # The compiler's C++ runtime, and the system's C runtime and threads.
  list(APPEND notice_packages g++-mingw-w64-i686-posix mingw-w64-i686-dev)
  set(notices THIRD-PARTY.txt)
  set(CPACK_GENERATOR ZIP)
  set(CPACK_PACKAGE_FILE_NAME irvela-${PROJECT_VERSION}-windows-x86)
  install(FILES ${documents} DESTINATION .)
  install(FILES ${references} DESTINATION docs)
else()
  list(APPEND notice_packages libboost1.74-dev libpq-dev)
  set(notices ${CMAKE_INSTALL_DOCDIR}/copyright)
  set(CPACK_GENERATOR DEB)
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
  set(CPACK_DEBIAN_PACKAGE_SECTION misc)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_BINARY_DIR})
  set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
  set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
  set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${CMAKE_SOURCE_DIR}/cmake/debian/triggers)
  install(FILES ${documents} ${references} DESTINATION ${CMAKE_INSTALL_DOCDIR})
  install(CODE "set(DOCUMENTS ${CMAKE_INSTALL_DOCDIR})
set(MANUAL ${CMAKE_INSTALL_MANDIR}/man1)
set(VERSION ${PROJECT_VERSION})")
  install(SCRIPT cmake/debian/documents.cmake)
endif()
install(CODE "set(NOTICES ${notices})\nset(NOTICE_PACKAGES ${notice_packages})")
install(SCRIPT cmake/notices.cmake)
include(CPack)
