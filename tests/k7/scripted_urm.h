// An instrument that answers what a test tells it to; everything else with something harmless.
#pragma once

#include <functional>
#include <map>
#include <utility>

#include "tests/k7/fixture.h"
#include "tests/support/sections.h"

namespace k7test {

inline constexpr int kCode521 = 0x2992;
inline constexpr int kCode523 = 0x2B54;

struct ArchiveQuestion {
  int kind = 0;
  Bytes from;  // the start's stamp
};

struct ScriptedUrm {
  int code = kCode521;
  std::map<std::pair<int, int>, Bytes> items;  // by channel and parameter
  std::function<Bytes(const ArchiveQuestion&)> archive;
  // Looks at every request first; nothing in its answer: the usual one.
  std::function<std::optional<std::optional<Answer>>(const Request&)> before;
  std::vector<Request> requests;

  std::optional<Answer> operator()(const Request& request);

 private:
  Bytes Parameters(const Bytes& references) const;
};

// A host with that instrument on its line; the period is 2016-03-31 22:10 to 2016-04-01 01:00.
struct Reading : Host {
  explicit Reading(int code, const char* groups = "");

  // The whole reading as the driver's thread does it, on this thread. Answers the final message.
  std::string Run();
  bool Said(const char* detail, const char* subject) const;
  std::vector<support::Section> Sections() const { return support::TakeApart(stream.writes); }

  ScriptedUrm urm;
};

}  // namespace k7test
