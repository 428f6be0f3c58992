# What the store needs where Debian has no packages of it: SQLite and SOCI from their sources, linked
# statically, without a server's database.
set(IRVELA_SOURCES ${CMAKE_SOURCE_DIR}/build/sources CACHE PATH "Folder of the sources of sqlite3 and soci")
set(sqlite ${IRVELA_SOURCES}/sqlite3)
set(soci ${IRVELA_SOURCES}/soci)
foreach(file ${sqlite}/sqlite3.c ${soci}/include/soci/soci.h)
  if(NOT EXISTS ${file})
    message(FATAL_ERROR "There is no ${file}: run scripts/windows-sources.sh, which fetches it")
  endif()
endforeach()

enable_language(C)
file(GLOB soci_code CONFIGURE_DEPENDS ${soci}/src/core/*.cpp ${soci}/src/backends/sqlite3/*.cpp)
# What SOCI's own build would write about its parts.
set(CONFIGURED_VARIABLES "#define SOCI_HAVE_CXX11\n#define SOCI_HAVE_SQLITE3")
set(made ${CMAKE_BINARY_DIR}/database)
configure_file(${soci}/include/soci/soci-config.h.in ${made}/soci/soci-config.h)
file(WRITE ${made}/soci_backends_config.h "")

add_library(irvela_database STATIC ${sqlite}/sqlite3.c ${soci_code})
target_include_directories(irvela_database SYSTEM
  PUBLIC ${soci}/include ${made} ${sqlite}
  PRIVATE ${soci}/include/private)
target_compile_definitions(irvela_database PRIVATE
  SOCI_LIB_PREFIX="" SOCI_LIB_SUFFIX=".dll" SQLITE_OMIT_LOAD_EXTENSION SQLITE_DQS=0)
target_compile_options(irvela_database PRIVATE -w)
