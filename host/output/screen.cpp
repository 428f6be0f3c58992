#include "host/output/screen.h"

#include <utility>

#include "host/system/console.h"
#include "host/system/files.h"
#include "host/system/output_width.h"

namespace host {
Screen::Screen() : Screen(ErrorIsTerminal(), WriteStandardOutput, WriteStandardError, ErrorWidth) {}

Screen::Screen(bool terminal, Write result, Write error, std::function<std::size_t()> width)
    : terminal_(terminal),
      result_(std::move(result)),
      error_(std::move(error)),
      width_(std::move(width)) {}

Screen::~Screen() { TakeBarAway(); }

void Screen::DrawBar(const std::string& bar) {
  const std::lock_guard lock(mutex_);
  Erase();
  bar_ = bar;
  error_(bar_);
  drawn_ = true;
}

void Screen::TakeBarAway() {
  const std::lock_guard lock(mutex_);
  Erase();
  bar_.clear();
}

void Screen::Erase() {
  if (drawn_) error_("\r\x1b[K");
  drawn_ = false;
}

void Screen::PrintLine(const std::string& line) {
  const std::lock_guard lock(mutex_);
  Erase();
  error_(line + '\n');
  if (bar_.empty()) return;
  error_(bar_);
  drawn_ = true;
}

void Screen::PrintResult(const std::string& text) {
  const std::lock_guard lock(mutex_);
  Erase();
  result_(text);
}

}  // namespace host
