#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <map>

#include "host/cli/checks.h"
#include "host/cli/commands.h"
#include "host/cli/durations.h"
#include "host/cli/selection_options.h"
#include "host/cli/sink_options.h"
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

enum class Form { kCsv, kJsonLines, kInflux };

const std::map<std::string, Form> kForms = {
    {"csv", Form::kCsv}, {"jsonl", Form::kJsonLines}, {"influx", Form::kInflux}};

class ExportCommand final : public Command {
 public:
  void AddTo(CLI::App& app) override;
  void Finish() override { chosen_.Finish(); }
  int Run() override;

 private:
  std::unique_ptr<RowForm> MakeForm() const;
  // Both return how many rows there are.
  std::size_t Export(const ExportWriter::Write& write) const;
  std::size_t ExportToFile() const;

  StoreChoice of_;
  SelectionParser chosen_{of_};
  Form form_ = Form::kCsv;
  UnitChoice units_;
  std::string out_;  // file; empty: the standard output
  bool force_ = false;
  std::optional<long> utcOffset_;  // seconds that the instruments' clocks are ahead of UTC
};

void ExportCommand::AddTo(CLI::App& app) {
  chosen_.AddTo(app);
  chosen_.AddGroupsTo(app);
  app.add_option_function<std::string>(
         "--format", [this](const std::string& name) { form_ = kForms.at(name); },
         "csv, jsonl: an object a line, or influx: InfluxDB's line protocol")
      ->transform(OneOf({"csv", "jsonl", "influx"}))
      ->option_text("NAME")
      ->default_str("csv");
  AddUnitsOption(app, units_);
  CLI::Option* out = app.add_option("--out", out_, "file, else the standard output");
  out->option_text("FILE");
  app.add_flag("--force", force_, "write the file over")->needs(out);
  app.add_option_function<std::string>(
         "--utc-offset", [this](const std::string& text) { utcOffset_ = RequireOffset(text); },
         "of the instruments' clocks, for influx: +03:00; else this machine's winter time")
      ->option_text("HH:MM");
  app.footer(
      "Examples:\n"
      "  irvela export --groups H --from 2016-09-01 > hours.csv\n"
      "  irvela export --db archive.db --serial 12822465 --format jsonl --out archive.jsonl\n"
      "  irvela export --groups HS --format influx --utc-offset +03:00 --out points.txt");
}

std::unique_ptr<RowForm> ExportCommand::MakeForm() const {
  switch (form_) {
    case Form::kJsonLines:
      return MakeJsonRows();
    case Form::kInflux:
      return MakeInfluxRows(utcOffset_.value_or(ZoneOffset()));
    case Form::kCsv:
      break;
  }
  return MakeCsvRows();
}

std::size_t ExportCommand::Export(const ExportWriter::Write& write) const {
  const std::unique_ptr<Database> database = OpenStore(of_.db.value_or(""));
  ExportWriter writer(MakeForm(), units_, write);
  database->Read([&] {
    const Selection& selection = of_.selection;
    TellKept(*database, FindSections(*database, selection), selection, writer);
  });
  return writer.Finish();
}

std::size_t ExportCommand::ExportToFile() const {
  const std::filesystem::path path = PathOf(out_);
  if (!force_ && std::filesystem::exists(path)) {
    throw UsageError("--out " + out_ + ": it is there already; --force writes it over");
  }
  OutputFile file(path);
  const std::size_t rows = Export([&](const std::string& text) { file.Append(text); });
  file.Flush();
  return rows;
}

int ExportCommand::Run() {
  const std::size_t rows = out_.empty() ? Export(WriteStandardOutput) : ExportToFile();
  const std::string where = out_.empty() ? "" : " to " + out_;
  WriteStandardError(fmt::format("irvela: exported {}{}\n", CountOf(rows, "row"), where));
  return kSuccess;
}

}  // namespace

std::unique_ptr<Command> MakeExportCommand() { return std::make_unique<ExportCommand>(); }

}  // namespace host
