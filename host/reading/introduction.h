// What an instrument tells of itself when it is asked who is there.
#pragma once

#include <mutex>
#include <optional>
#include <string>

#include "host/reading/driver_library.h"
#include "host/reading/run_listener.h"
#include "host/reading/settings.h"

namespace host {

// How a question reaches an instrument.
struct Way {
  tav::Mode kind{};
  int baud = 0;  // bit/s
};

// The settings of a run that only asks who is there, once: as settings, but by this way.
ReadSettings Question(const ReadSettings& settings, const Way& way);

// Passes the driver's messages on and keeps what they tell of the instrument.
class Introduction final : public RunListener {
 public:
  // messages must outlive it.
  explicit Introduction(RunListener& messages) : messages_(messages) {}
  void Tell(const Message& message) override;

  // From any thread. Nothing: it was not told.
  std::optional<std::string> Model() const { return Get(model_); }
  std::optional<std::string> Version() const { return Get(version_); }
  std::optional<std::string> Serial() const { return Get(serial_); }

 private:
  std::optional<std::string> Get(const std::optional<std::string>& what) const {
    const std::lock_guard lock(mutex_);
    return what;
  }

  RunListener& messages_;
  mutable std::mutex mutex_;
  std::optional<std::string> model_;
  std::optional<std::string> version_;
  std::optional<std::string> serial_;
};

}  // namespace host
