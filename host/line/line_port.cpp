#include "host/line/line_port.h"

namespace host {

std::string LinePort::Trouble() const {
  const std::lock_guard lock(mutex_);
  return trouble_;
}

void LinePort::Note(const std::string& trouble) {
  const std::lock_guard lock(mutex_);
  if (trouble_.empty()) trouble_ = trouble;
}

void LinePort::Lose(const std::string& trouble) {
  Note(trouble);
  lost_ = true;
}

}  // namespace host
