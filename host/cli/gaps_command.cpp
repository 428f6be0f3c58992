#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>

#include "host/cli/checks.h"
#include "host/cli/commands.h"
#include "host/cli/selection_options.h"
#include "host/output/gap_list.h"
#include "host/output/gap_map.h"
#include "host/system/exit_codes.h"
#include "host/system/files.h"
#include "host/system/output_width.h"

namespace host {
namespace {

enum class Format { kTable, kJson, kMap };

const std::map<std::string, Format> kFormats = {
    {"table", Format::kTable}, {"json", Format::kJson}, {"map", Format::kMap}};

std::string TextOf(const std::vector<SectionCoverage>& archives, Format format) {
  switch (format) {
    case Format::kJson:
      return GapsJson(archives);
    case Format::kMap:
      return GapsMap(archives, {OutputWidth(), OutputShowsUtf8()});
    case Format::kTable:
      break;
  }
  return GapsText(archives, OutputWidth());
}

class GapsCommand final : public Command {
 public:
  void AddTo(CLI::App& app) override;
  void Finish() override { chosen_.Finish(); }
  int Run() override;

 private:
  StoreChoice of_;
  SelectionParser chosen_{of_};
  Format format_ = Format::kTable;
};

void GapsCommand::AddTo(CLI::App& app) {
  chosen_.AddTo(app);
  chosen_.AddGroupsTo(app);
  app.add_option_function<std::string>(
         "--format", [this](const std::string& name) { format_ = kFormats.at(name); },
         "table, json, or map: a glyph for each record")
      ->transform(OneOf({"table", "json", "map"}))
      ->option_text("NAME")
      ->default_str("table");
  app.footer(
      "Examples:\n"
      "  irvela gaps --db archive.db\n"
      "  irvela gaps --db archive.db --serial 12822465 --groups H --format map\n"
      "  irvela gaps --from 2016-08-01 --to 2016-08-31 --format json\n"
      "Exit code: 0 nothing is missing, 3 records were never asked for or not answered (those\n"
      "that the instrument does not hold do not count), 1 the store cannot be read.");
}

int GapsCommand::Run() {
  const std::vector<SectionCoverage> archives = ListCoverage(of_.db.value_or(""), of_.selection);
  WriteStandardOutput(TextOf(archives, format_));
  const bool gaps = std::any_of(archives.begin(), archives.end(),
                                [](const auto& archive) { return HasGaps(archive.coverage); });
  return gaps ? kReadWithGaps : kSuccess;
}

}  // namespace

std::unique_ptr<Command> MakeGapsCommand() { return std::make_unique<GapsCommand>(); }

}  // namespace host
