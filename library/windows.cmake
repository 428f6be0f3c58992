# What only the DLL has: names for other compilers, its own allocation, a version, and an import
# library for the platform's own linker.
find_program(LLVM_DLLTOOL NAMES llvm-dlltool llvm-dlltool-14 REQUIRED)

configure_file(version.rc.in version.rc @ONLY)
enable_language(RC)
target_sources(TKSplDrv PRIVATE
  TKSplDrv.def no_exceptions.cpp constructor.cpp ${CMAKE_CURRENT_BINARY_DIR}/version.rc)
target_link_libraries(TKSplDrv PRIVATE irvela_warnings)

# Exceptions would bring the compiler's runtime for them into the DLL, threads and heap included.
target_compile_options(TKSplDrv PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-fno-exceptions>)
target_compile_options(driver_objects PRIVATE -fno-exceptions)
set_target_properties(TKSplDrv PROPERTIES PREFIX "")

set(PLATFORM_IMPORT_LIBRARY ${CMAKE_BINARY_DIR}/TKSplDrv.lib)
add_custom_command(OUTPUT ${PLATFORM_IMPORT_LIBRARY}
  COMMAND ${LLVM_DLLTOOL} -m i386 -D TKSplDrv.dll
          -d ${CMAKE_CURRENT_SOURCE_DIR}/TKSplDrv.def -l ${PLATFORM_IMPORT_LIBRARY}
  DEPENDS TKSplDrv.def VERBATIM)
add_custom_target(import_library ALL DEPENDS ${PLATFORM_IMPORT_LIBRARY})
set_target_properties(TKSplDrv PROPERTIES PLATFORM_IMPORT_LIBRARY ${PLATFORM_IMPORT_LIBRARY})
