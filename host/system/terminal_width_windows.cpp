#include <windows.h>

#include "host/system/output_width.h"

namespace host {

// A full line wraps there, so one column is left.
std::size_t OutputTerminalWidth() {
  CONSOLE_SCREEN_BUFFER_INFO info = {};
  if (GetConsoleScreenBufferInfo(GetStdHandle(STD_OUTPUT_HANDLE), &info) == 0) return 0;
  return static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left);
}

}  // namespace host
