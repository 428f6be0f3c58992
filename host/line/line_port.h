// A serial line that the program opens and hands to the driver.
#pragma once

#include <atomic>
#include <mutex>
#include <string>

#include "TKSplDrv/host.h"

namespace host {

class LinePort : public HostPort {
 public:
  virtual ~LinePort() = default;

  void Reserved2() final {}
  void Reserved4() final {}

  // Whether the line is gone. From then on reads give nothing after a short pause, so that a driver
  // that still tries does not use the processor. Safe from any thread.
  bool Lost() const { return lost_; }
  // What went wrong first, one sentence; empty while nothing did. Safe from any thread.
  std::string Trouble() const;

 protected:
  // Keeps the first trouble.
  void Note(const std::string& trouble);
  void Lose(const std::string& trouble);

 private:
  std::atomic<bool> lost_ = false;
  mutable std::mutex mutex_;
  std::string trouble_;
};

}  // namespace host
