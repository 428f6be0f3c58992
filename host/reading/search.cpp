#include "host/reading/search.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/reading/driver_run.h"
#include "host/reading/driver_set_up.h"

namespace host {
namespace {

constexpr tav::Mode kKinds[] = {tav::Mode::kOlder, tav::Mode::kK7};
constexpr int kMostRounds = 3;

std::vector<int> SpeedsToTry(const DriverLibrary& library, tav::Mode kind,
                             const ReadSettings& settings, const SearchOptions& options) {
  std::vector<int> offered = OfferedSpeeds(library, kind);
  if (options.anySpeed) return offered;
  if (!settings.baud) return {offered.front()};
  const bool has = std::count(offered.begin(), offered.end(), *settings.baud) > 0;
  return has ? std::vector{*settings.baud} : std::vector<int>{};
}

std::string NoSuchSpeed(const DriverLibrary& library, int baud) {
  return fmt::format("--speed {}: the older kind offers {}, k7 offers {}", baud,
                     fmt::join(OfferedSpeeds(library, tav::Mode::kOlder), ", "),
                     fmt::join(OfferedSpeeds(library, tav::Mode::kK7), ", "));
}

}  // namespace

std::vector<Way> WaysToTry(const DriverLibrary& library, const ReadSettings& settings,
                           const SearchOptions& options) {
  std::vector<Way> ways;
  for (const tav::Mode kind : kKinds) {
    if (!options.anyKind && kind != settings.kind) continue;
    for (const int speed : SpeedsToTry(library, kind, settings, options)) {
      ways.push_back({kind, speed});
    }
  }
  if (ways.empty()) throw UsageError(NoSuchSpeed(library, *settings.baud));
  return ways;
}

std::optional<FoundInstrument> FindInstrument(const DriverLibrary& library,
                                              const ReadSettings& settings,
                                              const std::vector<Way>& ways, LinePort& line,
                                              RunListener& messages, const AskStop& askStop) {
  for (int round = 0; round < std::min(settings.attempts, kMostRounds); ++round) {
    for (const Way& way : ways) {
      if (line.Lost() || askStop() != StopRequest::kNone) return std::nullopt;
      Introduction introduction(messages);
      RunDriver(library, Question(settings, way), line, introduction,
                [&] { return introduction.Model() ? StopRequest::kDone : askStop(); });
      if (const auto model = introduction.Model()) return FoundInstrument{way, *model};
    }
  }
  return std::nullopt;
}

std::string NobodyAnswers(const ReadSettings& settings, const std::vector<Way>& tried) {
  std::string names;
  for (const Way& way : tried) {
    names += fmt::format("{}kind {} at {} bit/s", names.empty() ? "" : ", ", KindName(way.kind),
                         way.baud);
  }
  return fmt::format(
      "nobody answers ({}); likely causes: another network number than {}, another speed, the "
      "wiring",
      names, settings.number);
}

}  // namespace host
