#include "host/cli/sink_options.h"

#include <CLI/CLI.hpp>
#include <map>
#include <string>

#include "host/cli/checks.h"

namespace host {
namespace {

const std::map<std::string, Format> kFormats = {
    {"table", Format::kTable}, {"json", Format::kJson}, {"csv", Format::kCsv}};

}  // namespace

void AddSinkOptions(CLI::App& app, SinkOptions& sinks) {
  app.add_option_function<std::string>(
         "--format", [&sinks](const std::string& name) { sinks.format = kFormats.at(name); },
         "table, json or csv")
      ->transform(OneOf({"table", "json", "csv"}))
      ->option_text("NAME")
      ->default_str("table");
  CLI::Option* rows = app.add_option("--rows", sinks.rows, "rows of a section in a table")
                          ->check(WholeNumber(2, 1000000))
                          ->option_text("N");
  app.add_flag_callback(
         "--all", [&sinks] { sinks.rows = 0; }, "all rows of a section")
      ->excludes(rows);
  app.add_option("--out", sinks.out, "a CSV file per section goes there")->option_text("DIR");
  app.add_flag("--force", sinks.force, "write over what an earlier reading left there");
}

}  // namespace host
