// One asynchronous operation with a time limit, run to its end on the thread that calls.
#pragma once

#include <asio/io_context.hpp>
#include <asio/steady_timer.hpp>
#include <chrono>

namespace host {

struct Outcome {
  asio::error_code error;  // operation_aborted: the time was over
  std::size_t count = 0;
};

// start is called with the handler of an operation on the stream, which is the context's only one.
// The operation and a timer run until the first of the two has ended the other.
template <class Stream, class Start>
Outcome Within(asio::io_context& context, Stream& stream, std::chrono::milliseconds limit,
               Start start) {
  Outcome outcome;
  context.restart();
  asio::steady_timer timer(context, limit);
  start([&](const asio::error_code& error, std::size_t count) {
    outcome = {error, count};
    timer.cancel();
  });
  timer.async_wait([&](const asio::error_code& error) {
    asio::error_code ignored;
    if (!error) stream.cancel(ignored);
  });
  context.run();
  return outcome;
}

}  // namespace host
