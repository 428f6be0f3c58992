#include <fmt/format.h>

#include "host/cli/commands.h"
#include "host/output/export_writer.h"
#include "host/output/text.h"
#include "host/store/kept_rows.h"
#include "host/store/open_store.h"
#include "host/system/clock.h"
#include "host/system/exit_codes.h"
#include "host/system/files.h"
#include "host/system/output_file.h"

namespace host {
namespace {

std::unique_ptr<RowForm> MakeForm(const ExportOptions& options) {
  switch (options.form) {
    case ExportForm::kJsonLines:
      return MakeJsonRows();
    case ExportForm::kInflux:
      return MakeInfluxRows(options.utcOffset.value_or(ZoneOffset()));
    case ExportForm::kCsv:
      break;
  }
  return MakeCsvRows();
}

// Returns how many rows.
std::size_t Export(const ExportOptions& options, const ExportWriter::Write& write) {
  const std::unique_ptr<Database> database = OpenStore(options.of.db.value_or(""));
  ExportWriter writer(MakeForm(options), options.units, write);
  database->Read([&] {
    const Selection& selection = options.of.selection;
    TellKept(*database, FindSections(*database, selection), selection, writer);
  });
  return writer.Finish();
}

std::size_t ExportToFile(const ExportOptions& options) {
  const std::filesystem::path path = PathOf(options.out);
  if (!options.force && std::filesystem::exists(path)) {
    throw UsageError("--out " + options.out + ": it is there already; --force writes it over");
  }
  OutputFile file(path);
  const std::size_t rows = Export(options, [&](const std::string& text) { file.Append(text); });
  file.Flush();
  return rows;
}

}  // namespace

int Export(const ExportOptions& options) {
  const bool toFile = !options.out.empty();
  const std::size_t rows = toFile ? ExportToFile(options) : Export(options, WriteStandardOutput);
  const std::string where = toFile ? " to " + options.out : "";
  WriteStandardError(fmt::format("irvela: exported {}{}\n", CountOf(rows, "row"), where));
  return kSuccess;
}

}  // namespace host
