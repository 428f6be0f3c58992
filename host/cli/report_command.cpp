#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <fstream>

#include "host/cli/checks.h"
#include "host/cli/commands.h"
#include "host/cli/selection_options.h"
#include "host/cli/sink_options.h"
#include "host/fields/words.h"
#include "host/output/screen.h"
#include "host/report/report.h"
#include "host/report/shown_dates.h"
#include "host/store/open_store.h"
#include "host/system/clock.h"
#include "host/system/exit_codes.h"
#include "host/system/files.h"
#include "host/system/output_file.h"

namespace host {
namespace {

constexpr double kMegabyte = 1e6;
// More than that is slow to mail and to open.
constexpr double kLarge = 50;

bool BeginsWith(const std::filesystem::path& path, std::string_view text) {
  std::ifstream file(path, std::ios::binary);
  std::string begin(text.size(), '\0');
  file.read(begin.data(), static_cast<std::streamsize>(begin.size()));
  return begin == text;
}

// An earlier page is written over, another file only by force, and a store never: it may be the one
// that is read, which nobody wants to lose.
void RequireFree(const std::string& out, bool force) {
  const std::filesystem::path path = PathOf(out);
  if (out == "-" || !std::filesystem::exists(path)) return;
  if (BeginsWith(path, "SQLite format 3")) throw UsageError("--out " + out + ": it is a store");
  if (force || BeginsWith(path, "<!doctype html>")) return;
  throw UsageError("--out " + out + ": it is there and no page; --force writes it over");
}

class ReportCommand final : public Command {
 public:
  void AddTo(CLI::App& app) override;
  void Finish() override;
  int Run() override;

 private:
  Report Make() const;
  void Write(const Report& report) const;

  StoreChoice of_;
  SelectionParser chosen_{of_};
  ReportOptions options_;
  std::string out_ = "report.html";
  bool force_ = false;
};

void ReportCommand::AddTo(CLI::App& app) {
  chosen_.AddTo(app);
  chosen_.AddGroupsTo(app);
  app.add_option("-o,--out", out_, "file, or -: the standard output")
      ->option_text("FILE")
      ->capture_default_str();
  app.add_flag("--force", force_, "write a file over that is no such page");
  app.add_option("--lang", options_.language, "of the page: en, or ru")
      ->transform(OneOf({"en", "ru"}))
      ->option_text("NAME")
      ->capture_default_str();
  app.add_flag("--all", options_.all, "all records, else those of the last year");
  app.add_option("--statement", options_.statement, "monthly statements for print instead: 2016-09")
      ->option_text("MONTH");
  AddUnitsOption(app, options_.units);
  app.footer(
      "The page needs no network and no other file. Without --from it shows of each instrument\n"
      "the year before its newest record.\n"
      "Examples:\n"
      "  irvela report --db archive.db -o report.html\n"
      "  irvela report --serial 12822465 --from 2016-08-01 --lang ru -o meter.html\n"
      "  irvela report --serial 12822465 --statement 2016-09 --lang ru -o september.html");
}

void ReportCommand::Finish() {
  chosen_.Finish();
  options_.selection = of_.selection;
  const bool dated = options_.selection.from || options_.selection.to || options_.all;
  if (options_.statement.empty()) return;
  if (!MonthOf(options_.statement)) {
    throw UsageError("--statement " + options_.statement + ": not a month such as 2016-09");
  }
  if (dated)
    throw UsageError("--statement is of a month: --from, --to and --all do not go with it");
}

Report ReportCommand::Make() const {
  const std::unique_ptr<Database> database = OpenStore(of_.db.value_or(""));
  ReportOptions options = options_;
  options.made = LocalNow();
  Screen screen;
  Report report;
  database->Read([&] {
    report = MakeReport(*database, options, [&](std::size_t done, std::size_t all) {
      if (screen.IsTerminal()) screen.DrawBar(fmt::format("instrument {} of {}", done + 1, all));
    });
  });
  screen.TakeBarAway();
  return report;
}

void ReportCommand::Write(const Report& report) const {
  if (out_ == "-") {
    WriteStandardOutput(report.page);
    return;
  }
  OutputFile file(PathOf(out_));
  file.Append(report.page);
  file.Flush();
}

int ReportCommand::Run() {
  RequireFree(out_, force_);
  const Report report = Make();
  Write(report);
  const double size = static_cast<double>(report.page.size()) / kMegabyte;
  WriteStandardError(fmt::format("irvela: {} in {} ({:.1f} MB){}\n",
                                 CountOf(report.instruments, "instrument"),
                                 out_ == "-" ? "the page" : out_, size,
                                 size > kLarge ? "; --from or --serial makes it smaller" : ""));
  return kSuccess;
}

}  // namespace

std::unique_ptr<Command> MakeReportCommand() { return std::make_unique<ReportCommand>(); }

}  // namespace host
