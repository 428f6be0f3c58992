#include "host/output/sinks.h"

#include <utility>

#include "host/output/csv_document.h"
#include "host/output/csv_folder.h"
#include "host/output/follow_printer.h"
#include "host/output/gatherer.h"
#include "host/output/json_document.h"
#include "host/output/message_printer.h"
#include "host/output/progress_display.h"
#include "host/output/raw_file_sink.h"
#include "host/output/reading_folder.h"
#include "host/output/table_document.h"
#include "host/reading/broadcast.h"
#include "host/store/store.h"
#include "host/system/files.h"

namespace host {
namespace {

std::unique_ptr<Document> MakeDocument(const SinkOptions& options, Screen& screen) {
  switch (options.format) {
    case Format::kJson:
      return std::make_unique<JsonDocument>(screen);
    case Format::kCsv:
      return std::make_unique<CsvDocument>(options.dialect, screen);
    case Format::kTable:
      break;
  }
  return std::make_unique<TableDocument>(options.rows, options.width, screen);
}

// folder: null when none is kept.
std::unique_ptr<RunListener> MakeGatherer(const SinkOptions& options, CsvFolder* folder,
                                          Screen& screen) {
  auto gatherer = std::make_unique<Gatherer>(options.units);
  if (folder != nullptr) gatherer->Add(*folder);
  gatherer->Add(MakeDocument(options, screen));
  return gatherer;
}

std::unique_ptr<CsvFolder> MakeFolder(const SinkOptions& options) {
  if (options.out.empty()) return nullptr;
  if (options.force) RemoveEarlierReading(PathOf(options.out));
  return std::make_unique<CsvFolder>(PathOf(options.out), options.units, options.dialect);
}

}  // namespace

// What keeps stands before what shows.
std::unique_ptr<RunListener> MakeSinks(const SinkOptions& options, Screen& screen) {
  if (!options.raw.empty()) CheckNewFile("--raw", options.raw, options.out, options.force);
  if (!options.out.empty()) CheckOutFolder(PathOf(options.out), options.force);
  auto sinks = std::make_unique<Broadcast>();
  if (!options.raw.empty()) sinks->Add(std::make_unique<RawFileSink>(PathOf(options.raw)));
  if (options.db) {
    sinks->Add(MakeStoreSink(*options.db, [&](const auto& line) { screen.PrintLine(line); }));
  }
  std::unique_ptr<CsvFolder> made = MakeFolder(options);
  CsvFolder* const folder = made.get();
  if (made) sinks->Add(std::move(made));
  sinks->Add(std::make_unique<ProgressDisplay>(screen));
  if (options.verbose > 0) sinks->Add(std::make_unique<MessagePrinter>(screen));
  if (options.follow) {  // without an end, so nothing is gathered
    sinks->Add(
        std::make_unique<FollowPrinter>(options.format, options.units, options.dialect, screen));
  } else {
    sinks->Add(MakeGatherer(options, folder, screen));
  }
  return sinks;
}

}  // namespace host
