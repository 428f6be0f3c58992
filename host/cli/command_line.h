// The command line as values.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/output/format.h"
#include "host/reading/reading.h"
#include "simulator/simulator.h"

namespace host {

struct DisplayOptions {
  Format format = Format::kTable;
  std::size_t rows = 10;  // of a section in a table; 0: all
};

struct ReadOptions {
  // Exactly one of the three is set.
  std::string port;
  std::string tcp;  // HOST:PORT
  bool simulate = false;
  simulator::Settings simulated;
  ReadSettings settings;
  DisplayOptions display;
  std::string out;     // folder, or empty
  std::string raw;     // file, or empty
  std::string driver;  // of the DLL, or empty
  bool verbose = false;
};

struct DecodeOptions {
  std::string file;
  std::string out;  // folder, or empty
  DisplayOptions display;
};

struct SimulateOptions {
  simulator::Settings settings;
  std::string pty;  // link to make
  bool tcp = false;
  std::uint16_t port = 0;  // with tcp; 0: any
};

enum class Command { kNone, kRead, kDecode, kSimulate, kModels };

struct CommandLine {
  Command command = Command::kNone;
  int exitCode = 0;     // of kNone
  std::string message;  // of kNone: the help that was asked for, or what is wrong
  ReadOptions read;
  DecodeOptions decode;
  SimulateOptions simulate;
};

// Never throws for what stands on the command line.
CommandLine ParseCommandLine(const std::vector<std::string>& arguments);

}  // namespace host
