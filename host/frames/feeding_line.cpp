#include "host/frames/feeding_line.h"

#include <exception>

namespace host::frames {
namespace {

ByteView View(const void* data, std::size_t size) {
  return {static_cast<const unsigned char*>(data), size};
}

}  // namespace

template <class Action>
void FeedingLine::Feed(Action action) {
  if (broken_) return;
  try {
    action();
  } catch (const std::exception&) {
    broken_ = true;
  }
}

bool FeedingLine::Control(int code) {
  const bool done = Wrapped().Control(code);
  Drop();
  return done;
}

int FeedingLine::Read(unsigned timeoutMs, unsigned count, void* destination) {
  const int received = Wrapped().Read(timeoutMs, count, destination);
  if (received <= 0) return received;
  const ByteView bytes = View(destination, static_cast<std::size_t>(received));
  Feed([&] { feed_.Receive(bytes, Elapsed()); });
  return received;
}

int FeedingLine::Write(const void* data, unsigned length) {
  const int written = Wrapped().Write(data, length);
  Drop();
  Feed([&] { feed_.Send(View(data, length), Elapsed()); });
  return written;
}

// What came too late was thrown away before anything else was done.
void FeedingLine::Drop() {
  const std::string_view dropped = Wrapped().Dropped();
  Feed([&] { feed_.Drop(View(dropped.data(), dropped.size()), Elapsed()); });
}

long long FeedingLine::Elapsed() const {
  const auto passed = now_() - begun_;
  return std::chrono::duration_cast<std::chrono::milliseconds>(passed).count();
}

}  // namespace host::frames
