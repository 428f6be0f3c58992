// The command line as values.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/cli/gaps_options.h"
#include "host/cli/params_options.h"
#include "host/cli/read_options.h"
#include "host/cli/selection_options.h"
#include "host/output/sinks.h"
#include "simulator/simulator.h"

namespace host {

struct DecodeOptions {
  std::string file;
  SinkOptions sinks;
};

struct SimulateOptions {
  simulator::Settings settings;
  std::string pty;  // link to make
  bool tcp = false;
  std::uint16_t port = 0;  // with tcp; 0: any
};

struct ModelsOptions {
  bool fields = false;  // what every column means, instead of the models
  bool json = false;    // of the fields
};

struct ListOptions {
  std::optional<std::string> db;  // as MakeStoreSink takes it
  bool json = false;
};

struct ShowOptions {
  StoreChoice of;
  SinkOptions sinks;
};

enum class ExportForm { kCsv, kJsonLines, kInflux };

struct ExportOptions {
  StoreChoice of;
  ExportForm form = ExportForm::kCsv;
  UnitChoice units;
  std::string out;  // file; empty: the standard output
  bool force = false;
  std::optional<long> utcOffset;  // seconds that the instruments' clocks are ahead of UTC
};

enum class Command {
  kNone,
  kRead,
  kDecode,
  kList,
  kShow,
  kExport,
  kParams,
  kGaps,
  kSimulate,
  kModels
};

struct CommandLine {
  Command command = Command::kNone;
  int exitCode = 0;     // of kNone
  std::string message;  // of kNone: the help that was asked for, or what is wrong
  ReadOptions read;
  DecodeOptions decode;
  ListOptions list;
  ShowOptions show;
  ExportOptions exported;
  ParamsOptions params;
  GapsOptions gaps;
  SimulateOptions simulate;
  ModelsOptions models;
};

// Never throws for what stands on the command line.
CommandLine ParseCommandLine(const std::vector<std::string>& arguments);

}  // namespace host
