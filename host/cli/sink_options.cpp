#include "host/cli/sink_options.h"

#include <CLI/CLI.hpp>
#include <map>
#include <optional>
#include <string>

#include "host/cli/checks.h"
#include "host/reading/settings.h"
#include "host/system/output_width.h"

namespace host {
namespace {

constexpr const char* kStandardName = "standard";
constexpr const char* kExcelRuName = "excel-ru";

const std::map<std::string, Format> kFormats = {
    {"table", Format::kTable}, {"json", Format::kJson}, {"csv", Format::kCsv}};

UnitChoice RequireUnits(const std::string& words) {
  const std::optional<UnitChoice> choice = ParseUnitChoice(words);
  if (!choice) {
    throw UsageError("--units " + words +
                     ": there are as-is, for heat gcal, gj and mwh, for pressure kgf, mpa, kpa and "
                     "bar; one of each, as in gj,mpa");
  }
  return *choice;
}

void AddFolder(CLI::App& app, SinkOptions& sinks) {
  app.add_option("--out", sinks.out, "a CSV file per section goes there; a new or empty folder")
      ->option_text("DIR");
  app.add_flag("--force", sinks.force, "replace what an earlier reading kept there");
  app.add_option_function<std::string>(
         "--csv-dialect",
         [&sinks](const std::string& name) {
           sinks.dialect = name == kExcelRuName ? kExcelRuCsv : kStandardCsv;
         },
         "standard, or excel-ru for a spreadsheet set to Russian")
      ->transform(OneOf({kStandardName, kExcelRuName}))
      ->option_text("NAME")
      ->default_str(kStandardName);
}

}  // namespace

void AddSinkOptions(CLI::App& app, SinkOptions& sinks) {
  app.add_option_function<std::string>(
         "--format", [&sinks](const std::string& name) { sinks.format = kFormats.at(name); },
         "table, json or csv")
      ->transform(OneOf({"table", "json", "csv"}))
      ->option_text("NAME")
      ->default_str("table");
  CLI::Option* rows = app.add_option("--rows", sinks.rows, "rows of a section in a table")
                          ->check(WholeNumber(1, 1000000))
                          ->option_text("N");
  app.add_flag_callback(
         "--all", [&sinks] { sinks.rows = 0; }, "all rows of a section")
      ->excludes(rows);
  AddUnitsOption(app, sinks.units);
  AddFolder(app, sinks);
  sinks.width = OutputWidth();
}

void AddUnitsOption(CLI::App& app, UnitChoice& units) {
  app.add_option_function<std::string>(
         "--units", [&units](const std::string& words) { units = RequireUnits(words); },
         "heat in gcal, gj or mwh, pressure in kgf, mpa, kpa or bar, as in gj,mpa")
      ->option_text("UNITS")
      ->default_str("as-is");
}

CLI::Option* AddJsonOption(CLI::App& app, bool& json) {
  return app
      .add_option_function<std::string>(
          "--format", [&json](const std::string& name) { json = name == "json"; }, "table or json")
      ->transform(OneOf({"table", "json"}))
      ->option_text("NAME")
      ->default_str("table");
}

void AddReadingSinkOptions(CLI::App& app, SinkOptions& sinks) {
  AddSinkOptions(app, sinks);
  app.add_option("--raw", sinks.raw, "keep the driver's stream, for irvela decode")
      ->option_text("FILE");
  AddStoreOption(app, sinks.db);
  app.add_flag("-v,--verbose", sinks.verbose,
               "show the driver's messages; -vv: what the line carries too");
}

void AddDriverOption([[maybe_unused]] CLI::App& app, [[maybe_unused]] std::string& driver) {
#if defined(_WIN32)
  app.add_option("--driver", driver, "TKSplDrv.dll, else the one beside this program")
      ->option_text("PATH");
#endif
}

void AddStoreOption(CLI::App& app, std::optional<std::string>& db) {
  app.add_option_function<std::vector<std::string>>(
         "--db",
         [&db](const std::vector<std::string>& names) { db = names.empty() ? "" : names.front(); },
         "the store: a file, else the one in your data folder, or postgresql://...")
      ->expected(0, 1)
      ->option_text("[FILE]");
}

}  // namespace host
