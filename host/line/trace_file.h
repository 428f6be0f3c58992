// A trace: what a reading did with its line, as a file of JSON lines. docs/trace.md tells its form.
#pragma once

#include <chrono>
#include <filesystem>
#include <istream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/line/line_port.h"
#include "host/line/port_call.h"
#include "host/system/output_file.h"

namespace host {

inline constexpr int kTraceVersion = 1;

struct TraceEvent {
  enum class Kind { kBeginRun, kCall, kStop, kEndRun };

  Kind kind{};
  std::size_t line = 0;    // of the file
  long long ms = 0;        // since the beginning, when it was over
  std::string settings{};  // of a run that begins, a JSON object
  PortCall call{};
  CallResult result{};
  StopCause stop{};    // of a call: the driver was asked to stop at its end; of the end of a
                       // run: for what it was stopped
  bool obeyed = true;  // of the end of a run: the driver ended by itself
  bool lost = false;   // the line is, from here on
  std::optional<std::string> trouble{};  // as LinePort tells it from here on; none: as before
};

// The whole of a file, in memory: about 300 bytes for each call.
struct Trace {
  std::string reading;  // the settings of the reading, a JSON object
  std::vector<TraceEvent> events;
  std::optional<std::string> end;  // how the reading ended, a JSON object; none: the trace is cut
};

// Throws std::runtime_error with one sentence when the file cannot be read, is no trace, one of a
// newer version, or makes no sense somewhere.
Trace LoadTrace(const std::filesystem::path& path);
// The same from a stream; name: of it, for people.
Trace LoadTrace(std::istream& file, const std::string& name);

// Writes a trace. A program that was killed leaves all but the last call, or the last few bytes
// that it read one by one within a millisecond: they share a line. A file that cannot be written
// any more stops the trace, not the reading. For one thread at a time.
class TraceWriter {
 public:
  // reading: the settings of the reading, a JSON object. Throws std::runtime_error when the file
  // cannot be begun.
  TraceWriter(const std::filesystem::path& path, const std::string& reading);

  void Add(TraceEvent event);  // its time is set here
  // end: how the reading ended, a JSON object.
  void End(const std::string& end);
  // Why the trace stops before its end; empty: it does not.
  const std::string& Trouble() const { return trouble_; }

 private:
  bool Joins(const TraceEvent& event) const;
  void WritePending();
  void WriteLine(std::string_view line);
  long long Elapsed() const;

  const std::chrono::steady_clock::time_point begun_ = std::chrono::steady_clock::now();
  OutputFile file_;
  std::optional<TraceEvent> pending_;  // a read that the next one may join
  std::string trouble_;
};

}  // namespace host
