#include "host/line/stretched_line.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace host {

unsigned StretchedLine::Stretched(unsigned ms) const {
  constexpr double kMost = std::numeric_limits<unsigned>::max();
  return static_cast<unsigned>(std::min(std::round(ms * factor_), kMost));
}

bool StretchedLine::SetTimeouts(unsigned readInterval, unsigned readPerByte, unsigned readConstant,
                                unsigned writePerByte, unsigned writeConstant) {
  return Wrapped().SetTimeouts(Stretched(readInterval), Stretched(readPerByte),
                               Stretched(readConstant), Stretched(writePerByte),
                               Stretched(writeConstant));
}

int StretchedLine::Read(unsigned timeoutMs, unsigned count, void* destination) {
  auto* const into = static_cast<char*>(destination);
  unsigned left = Stretched(timeoutMs);
  unsigned taken = 0;
  do {
    const unsigned piece = std::min(left, timeoutMs);
    taken += static_cast<unsigned>(Wrapped().Read(piece, count - taken, into + taken));
    left -= piece;
  } while (taken < count && left > 0 && !hurried_ && !Lost());
  return static_cast<int>(taken);
}

void StretchedLine::Hurry(bool hurry) {
  hurried_ = hurry;
  WrappedLine::Hurry(hurry);
}

}  // namespace host
