#include <windows.h>

#include "host/system/output_width.h"

namespace host {
namespace {

// A full line wraps there, so one column is left.
std::size_t WidthOf(DWORD stream) {
  CONSOLE_SCREEN_BUFFER_INFO info = {};
  if (GetConsoleScreenBufferInfo(GetStdHandle(stream), &info) == 0) return 0;
  return static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left);
}

}  // namespace

std::size_t OutputTerminalWidth() { return WidthOf(STD_OUTPUT_HANDLE); }

// See SetUpConsole.
bool TerminalTakesUtf8() { return true; }

std::size_t ErrorTerminalWidth() { return WidthOf(STD_ERROR_HANDLE); }

}  // namespace host
