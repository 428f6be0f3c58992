// A served instrument's thread, shared by both kinds of line.
#pragma once

#include <asio.hpp>
#include <memory>
#include <thread>

#include "simulator/catalogue/catalogue.h"

namespace simulator {

class Server : public Served {
 public:
  explicit Server(const Settings& settings)
      : instrument_(MakeInstrument(settings, ClockOf(settings))), lineSpeed_(settings.lineSpeed) {}

 protected:
  // Called at the end of the constructor of a derived class, and Stop in its destructor: the
  // thread uses the members of that class.
  void Run() {
    thread_ = std::thread([this] { context_.run(); });
  }
  void Stop() {
    context_.stop();
    if (thread_.joinable()) thread_.join();
  }

  asio::io_context context_;
  std::unique_ptr<Instrument> instrument_;
  int lineSpeed_;

 private:
  std::thread thread_;
};

}  // namespace simulator
