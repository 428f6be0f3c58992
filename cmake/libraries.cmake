# Debian's libraries for everything around the driver. The header-only ones serve the Windows build
# too: -idirafter finds them without mixing the C library's headers in.
find_package(Threads REQUIRED)

add_library(irvela_libraries INTERFACE)
# The formatting library is linked: its headers alone would have its code compiled in every file.
# Whether Asio finds the aligned allocation depends on what was included before it: files that differ
# in that would free what others allocated another way.
target_compile_definitions(irvela_libraries INTERFACE
  ASIO_STANDALONE ASIO_NO_DEPRECATED ASIO_DISABLE_STD_ALIGNED_ALLOC)
target_link_libraries(irvela_libraries INTERFACE Threads::Threads)
if(WIN32)
  target_compile_options(irvela_libraries INTERFACE "SHELL:-idirafter /usr/include")
  target_compile_definitions(irvela_libraries INTERFACE _WIN32_WINNT=0x0601)
  add_library(irvela_fmt STATIC ${CMAKE_CURRENT_LIST_DIR}/fmt_from_headers.cpp)
  target_compile_options(irvela_fmt PRIVATE "SHELL:-idirafter /usr/include")
  target_link_libraries(irvela_libraries INTERFACE irvela_fmt ws2_32 mswsock)
else()
  find_library(LIBRARY_fmt fmt REQUIRED)
  target_link_libraries(irvela_libraries INTERFACE ${LIBRARY_fmt})
endif()

# What the store needs. Its files are SQLite's, a server PostgreSQL's.
if(WIN32)
  include(cmake/database_from_sources.cmake)
else()
  find_path(SQLITE_INCLUDE sqlite3.h REQUIRED)
  find_path(POSTGRESQL_INCLUDE libpq-fe.h PATH_SUFFIXES postgresql REQUIRED)
  find_path(SOCI_INCLUDE soci/soci.h REQUIRED)
  add_library(irvela_database INTERFACE)
  target_include_directories(irvela_database SYSTEM INTERFACE
    ${SOCI_INCLUDE} ${SQLITE_INCLUDE} ${POSTGRESQL_INCLUDE})
  foreach(library soci_core soci_sqlite3 soci_postgresql sqlite3)
    find_library(LIBRARY_${library} ${library} REQUIRED)
    target_link_libraries(irvela_database INTERFACE ${LIBRARY_${library}})
  endforeach()
endif()

# What the report's page is compressed with.
find_package(ZLIB REQUIRED)
