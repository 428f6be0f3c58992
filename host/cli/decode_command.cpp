#include <fmt/format.h>

#include <cstdio>
#include <optional>

#include "host/cli/commands.h"
#include "host/cli/exit_codes.h"
#include "host/output/csv_folder.h"
#include "host/output/show.h"
#include "host/output/table.h"
#include "host/reading/receiver.h"
#include "host/stream/decoder.h"
#include "host/stream/raw_file.h"
#include "host/system/files.h"

namespace host {

int Decode(const DecodeOptions& options) {
  const RawFile raw = LoadRawFile(PathOf(options.file));
  SectionKeeper keeper;
  std::vector<SectionListener*> listeners = {&keeper};
  std::optional<CsvFolder> folder;
  if (!options.out.empty()) listeners.push_back(&folder.emplace(PathOf(options.out)));
  Broadcast broadcast(std::move(listeners));
  Decoder decoder(broadcast);
  for (const Bytes& piece : raw.pieces) decoder.Take(piece);
  decoder.Finish();
  WriteStandardOutput(
      ShowSections(keeper.Sections(), {options.display.format, options.display.rows, "", ""}));
  if (decoder.Ignored() > 0) {
    fmt::print(stderr, "irvela: {} of the stream made no sense\n",
               CountOf(decoder.Ignored(), "piece"));
  }
  if (raw.trouble.empty()) return kRead;
  fmt::print(stderr, "irvela: {}\n", raw.trouble);
  return kFailed;
}

}  // namespace host
