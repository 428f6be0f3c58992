#include <sys/ioctl.h>
#include <unistd.h>

#include "host/system/output_width.h"

namespace host {
namespace {

std::size_t WidthOf(int descriptor) {
  struct winsize size = {};
  return ioctl(descriptor, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

}  // namespace

std::size_t OutputTerminalWidth() { return WidthOf(STDOUT_FILENO); }

std::size_t ErrorTerminalWidth() { return WidthOf(STDERR_FILENO); }

}  // namespace host
