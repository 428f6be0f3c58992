# Debian's libraries for everything around the driver. The header-only ones serve the Windows build
# too: -idirafter finds them without mixing the C library's headers in.
find_package(Threads REQUIRED)

add_library(irvela_libraries INTERFACE)
target_compile_definitions(irvela_libraries INTERFACE
  ASIO_STANDALONE ASIO_NO_DEPRECATED FMT_HEADER_ONLY)
target_link_libraries(irvela_libraries INTERFACE Threads::Threads)
if(WIN32)
  target_compile_options(irvela_libraries INTERFACE "SHELL:-idirafter /usr/include")
  target_compile_definitions(irvela_libraries INTERFACE _WIN32_WINNT=0x0601)
  target_link_libraries(irvela_libraries INTERFACE ws2_32 mswsock)
endif()
