#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>
#include <string_view>

#include "host/system/output_width.h"

namespace host {
namespace {

std::size_t WidthOf(int descriptor) {
  struct winsize size = {};
  return ioctl(descriptor, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

// The one that counts of those that may tell the encoding.
std::string_view Locale() {
  for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
    const char* value = std::getenv(name);
    if (value != nullptr && *value != '\0') return value;
  }
  return {};
}

}  // namespace

std::size_t OutputTerminalWidth() { return WidthOf(STDOUT_FILENO); }

bool TerminalTakesUtf8() {
  for (const char* name : {"UTF-8", "utf-8", "UTF8", "utf8"}) {
    if (Locale().find(name) != std::string_view::npos) return true;
  }
  return false;
}

std::size_t ErrorTerminalWidth() { return WidthOf(STDERR_FILENO); }

}  // namespace host
