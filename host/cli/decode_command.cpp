#include <fmt/format.h>

#include <cstdio>

#include "host/cli/commands.h"
#include "host/cli/summary.h"
#include "host/reading/kept_stream.h"
#include "host/system/files.h"

namespace host {

int Decode(const DecodeOptions& options) {
  RawFileReader raw(PathOf(options.file));
  Screen screen;
  const auto sinks = MakeSinks(options.sinks, screen);
  const RunEnd end = RunKeptStream(raw, options.file, *sinks);
  fmt::print(stderr, "{}", IgnoredLine(end.counts));
  if (!end.reason.empty()) fmt::print(stderr, "irvela: {}\n", end.reason);
  return ExitCodeOf(end);
}

}  // namespace host
