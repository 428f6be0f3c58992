#include <sys/ioctl.h>
#include <unistd.h>

#include "host/system/output_width.h"

namespace host {

std::size_t OutputTerminalWidth() {
  struct winsize size = {};
  return ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

}  // namespace host
