#include "host/line/trace_file.h"

#include <fmt/format.h>

#include <exception>
#include <fstream>
#include <nlohmann/json.hpp>
#include <utility>

#include "host/line/trace_event.h"
#include "host/system/files.h"

namespace host {
namespace {

using Json = nlohmann::json;

constexpr const char* kVersionKey = "irvela_trace";
// Far more than a port call has in hex.
constexpr std::size_t kLongestLine = 1'048'576;

// The lines of a file, of which the last one may break off.
class Lines {
 public:
  Lines(std::istream& file, std::string name)
      : name_(std::move(name)), file_(file), buffer_(kLongestLine) {}

  bool Next() {
    file_.getline(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
    length_ = static_cast<std::size_t>(file_.gcount());
    if (length_ == 0) return false;
    ++number_;
    if (file_.fail()) throw Senseless();
    whole_ = !file_.eof();
    if (whole_) --length_;
    return true;
  }
  // Discarded: no JSON.
  Json Parsed() const {
    return Json::parse(buffer_.data(), buffer_.data() + length_, nullptr, false);
  }
  std::size_t Number() const { return number_; }
  bool Whole() const { return whole_; }
  const std::string& Name() const { return name_; }

  std::runtime_error Senseless() const {
    if (number_ == 1) return std::runtime_error(name_ + " is no trace of a reading");
    return std::runtime_error(fmt::format("{} is damaged: line {} makes no sense", name_, number_));
  }

 private:
  std::string name_;
  std::istream& file_;
  std::vector<char> buffer_;
  std::size_t length_ = 0;
  std::size_t number_ = 0;
  bool whole_ = false;
};

std::string TakeHeader(const Lines& lines) {
  const Json header = lines.Parsed();
  if (!header.is_object() || !header.contains(kVersionKey)) throw lines.Senseless();
  const Json& version = header[kVersionKey];
  if (!version.is_number_unsigned() || version == 0U) throw lines.Senseless();
  if (version > kTraceVersion) {
    throw std::runtime_error(
        fmt::format("{} is a trace of version {}, this program knows version {}", lines.Name(),
                    version.dump(), kTraceVersion));
  }
  if (!header.contains("reading") || !header["reading"].is_object()) throw lines.Senseless();
  return header["reading"].dump();
}

// A line without its line feed was written in part.
bool IsCut(const Lines& lines) { return !lines.Whole() && lines.Parsed().is_discarded(); }

// Reads that share a line come apart again.
void Append(std::vector<TraceEvent>& events, TraceEvent event) {
  const auto count = static_cast<std::size_t>(event.call.arguments[1]);
  if (event.result.received.size() <= count) return events.push_back(std::move(event));
  const std::string bytes = std::exchange(event.result.received, {});
  event.result.value = static_cast<int>(count);
  for (std::size_t at = 0; at < bytes.size(); at += count) {
    events.push_back(event);
    events.back().result.received = bytes.substr(at, count);
  }
}

void TakeLine(const Lines& lines, Trace& trace) {
  const Json line = lines.Parsed();
  if (!line.is_object() || trace.end) throw lines.Senseless();
  if (line.contains("end")) {
    trace.end = line["end"].dump();
  } else {
    TraceEvent event = ParseTraceEvent(line);
    event.line = lines.Number();
    Append(trace.events, std::move(event));
  }
}

// Of some bytes, and nothing else to be told.
bool IsFullRead(const TraceEvent& event) {
  const CallResult& result = event.result;
  return event.kind == TraceEvent::Kind::kCall && event.call.name == PortCall::Name::kRead &&
         result.value > 0 && result.value == event.call.arguments[1] &&
         event.stop == StopCause::kNone && !event.lost && !event.trouble;
}

}  // namespace

Trace LoadTrace(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file || std::filesystem::is_directory(path)) throw FileError("read", path);
  return LoadTrace(file, PathText(path));
}

Trace LoadTrace(std::istream& file, const std::string& name) {
  Lines lines(file, name);
  Trace trace;
  if (!lines.Next()) throw std::runtime_error(lines.Name() + " is empty");
  trace.reading = TakeHeader(lines);
  try {
    while (lines.Next() && !IsCut(lines)) TakeLine(lines, trace);
  } catch (const Json::exception&) {
    throw lines.Senseless();
  }
  return trace;
}

TraceWriter::TraceWriter(const std::filesystem::path& path, const std::string& reading)
    : file_(path) {
  WriteLine(fmt::format(R"({{"{}":{},"program":"irvela {}","reading":{}}})", kVersionKey,
                        kTraceVersion, IRVELA_VERSION, reading));
  if (!trouble_.empty()) throw std::runtime_error(trouble_);
}

long long TraceWriter::Elapsed() const {
  const auto passed = std::chrono::steady_clock::now() - begun_;
  return std::chrono::duration_cast<std::chrono::milliseconds>(passed).count();
}

void TraceWriter::Add(TraceEvent event) {
  event.ms = Elapsed();
  if (Joins(event)) {
    pending_->result.received += event.result.received;
    return;
  }
  WritePending();
  if (IsFullRead(event)) {
    pending_ = std::move(event);
  } else {
    WriteLine(TraceLineOf(event));
  }
}

bool TraceWriter::Joins(const TraceEvent& event) const {
  return pending_ && IsFullRead(event) && pending_->call == event.call && pending_->ms == event.ms;
}

void TraceWriter::WritePending() {
  if (pending_) WriteLine(TraceLineOf(*pending_));
  pending_.reset();
}

void TraceWriter::End(const std::string& end) {
  WritePending();
  WriteLine(fmt::format(R"({{"t":{},"end":{}}})", Elapsed(), end));
}

void TraceWriter::WriteLine(std::string_view line) {
  if (!trouble_.empty()) return;
  try {
    file_.Append(line);
    file_.Append("\n");
    file_.Flush();
  } catch (const std::exception& error) {
    trouble_ = error.what();
  }
}

}  // namespace host
