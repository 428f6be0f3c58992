#include "host/cli/commands.h"

namespace host {

std::span<const CommandRow> Commands() {
  static constexpr CommandRow kAll[] = {
      {"read", "Reads an instrument and shows what it holds.", MakeReadCommand},
      {"scan", "Asks each network number of a line who is there.", MakeScanCommand},
      {"replay", "Repeats a reading that was kept with its line.", MakeReplayCommand},
      {"decode", "Shows a stream that a reading kept.", MakeDecodeCommand},
      {"list", "Lists what the store keeps.", MakeListCommand},
      {"show", "Shows what the store keeps of an instrument.", MakeShowCommand},
      {"gaps", "Shows which records the store lacks.", MakeGapsCommand},
      {"params", "Shows parameters of instruments, and what changed.", MakeParamsCommand},
      {"check", "Finds in the store what an engineer would want to know.", MakeCheckCommand},
      {"report", "Writes a page over what the store keeps.", MakeReportCommand},
      {"export", "Writes what the store keeps, a row a line.", MakeExportCommand},
      {"import", "Takes earlier readings into the store.", MakeImportCommand},
      {"explain", "Says what the bytes of frames mean.", MakeExplainCommand},
      {"simulate", "Is an instrument on a line.", MakeSimulateCommand},
      {"models", "Lists the models and what their values mean.", MakeModelsCommand},
  };
  return kAll;
}

}  // namespace host
