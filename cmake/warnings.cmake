# Warnings for our own code; they are errors in every build.
add_library(irvela_warnings INTERFACE)
target_compile_options(irvela_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast
  -Wcast-qual -Wformat=2 -Wnull-dereference -Wimplicit-fallthrough -Werror)
