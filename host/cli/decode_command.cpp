#include <fmt/format.h>

#include <cstdio>

#include "host/cli/commands.h"
#include "host/cli/summary.h"
#include "host/reading/kept_stream.h"
#include "host/system/exit_codes.h"
#include "host/system/files.h"

namespace host {

int Decode(const DecodeOptions& options) {
  const RawFile raw = LoadRawFile(PathOf(options.file));
  Screen screen;
  const auto sinks = MakeSinks(options.sinks, screen);
  const RunEnd end = RunKeptStream(raw, options.file, *sinks);
  TellIgnored(end.counts);
  if (end.ending == Ending::kRead) return kSuccess;
  fmt::print(stderr, "irvela: {}\n", end.reason);
  return kFailed;
}

}  // namespace host
