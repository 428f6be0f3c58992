#include "host/output/sinks.h"

#include "host/output/csv_document.h"
#include "host/output/csv_folder.h"
#include "host/output/follow_printer.h"
#include "host/output/json_document.h"
#include "host/output/message_printer.h"
#include "host/output/progress_display.h"
#include "host/output/raw_file_sink.h"
#include "host/output/table_document.h"
#include "host/reading/broadcast.h"
#include "host/system/files.h"

namespace host {
namespace {

std::unique_ptr<RunListener> MakeDocument(const SinkOptions& options, Screen& screen) {
  switch (options.format) {
    case Format::kJson:
      return std::make_unique<JsonDocument>(screen);
    case Format::kCsv:
      return std::make_unique<CsvDocument>(screen);
    case Format::kTable:
      break;
  }
  return std::make_unique<TableDocument>(options.rows, screen);
}

}  // namespace

// What keeps stands before what shows.
std::unique_ptr<RunListener> MakeSinks(const SinkOptions& options, Screen& screen) {
  if (!options.raw.empty()) CheckRawFile(options.raw, options.out, options.force);
  auto sinks = std::make_unique<Broadcast>();
  if (!options.raw.empty()) sinks->Add(std::make_unique<RawFileSink>(PathOf(options.raw)));
  if (!options.out.empty()) sinks->Add(std::make_unique<CsvFolder>(PathOf(options.out)));
  sinks->Add(std::make_unique<ProgressDisplay>(screen));
  if (options.verbose) sinks->Add(std::make_unique<MessagePrinter>(screen));
  sinks->Add(options.follow ? std::make_unique<FollowPrinter>(options.format, screen)
                            : MakeDocument(options, screen));
  return sinks;
}

}  // namespace host
