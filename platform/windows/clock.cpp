#include "platform/platform.h"

namespace platform {

void Sleep(unsigned milliseconds) { ::Sleep(milliseconds); }

SYSTEMTIME GetLocalTime() {
  SYSTEMTIME time;
  ::GetLocalTime(&time);
  return time;
}

}  // namespace platform
