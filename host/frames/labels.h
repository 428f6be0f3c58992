// Labels for bytes, one behind the other.
#pragma once

#include <algorithm>
#include <utility>

#include "host/frames/frame.h"

namespace host::frames {

class Labels {
 public:
  // bytes: of one frame; first: where it stands in what was given.
  Labels(ByteView bytes, std::size_t first) : bytes_(bytes), first_(first) {}

  ByteView Left() const { return bytes_.subspan(at_); }
  // The next bytes, at most those that are left; none are no label.
  void Put(std::size_t count, std::string name, std::string meaning = {}) {
    count = std::min(count, bytes_.size() - at_);
    if (count == 0) return;
    labels_.push_back({first_ + at_, count, std::move(name), std::move(meaning)});
    at_ += count;
  }
  // What is left of them is called so.
  std::vector<Label> Take(const char* rest) {
    Put(bytes_.size() - at_, rest);
    return std::move(labels_);
  }

 private:
  ByteView bytes_;
  std::size_t first_;
  std::size_t at_ = 0;
  std::vector<Label> labels_;
};

}  // namespace host::frames
