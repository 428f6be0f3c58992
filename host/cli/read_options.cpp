#include "host/cli/read_options.h"

#include <CLI/CLI.hpp>

#include "host/cli/checks.h"
#include "host/cli/dates.h"
#include "host/cli/durations.h"
#include "host/cli/sink_options.h"
#include "host/system/clock.h"

namespace host {
namespace {

// "B database, T current values, ...".
std::string GroupNames() {
  std::string names;
  for (const ReadGroupName& known : kReadGroups) {
    if (!names.empty()) names += ", ";
    names += static_cast<char>(known.group);
    names += ' ' + std::string(known.name);
  }
  return names;
}

std::string ArchiveGroups() {
  return {static_cast<char>(tav::ReadGroup::kMonths), static_cast<char>(tav::ReadGroup::kDays),
          static_cast<char>(tav::ReadGroup::kHours)};
}

}  // namespace

void ReadParser::AddReading(CLI::App& app) {
  ReadSettings& settings = read_.settings;
  app.add_option("--number", settings.number, "network number of the instrument")
      ->check(WholeNumber(0, 255));
  app.add_option("--kind", kind_, "protocol: older (52x, 72x), k7, or auto: whichever answers")
      ->transform(OneOf({"auto", "older", "k7"}))
      ->option_text("NAME")
      ->default_str(kind_);
  app.add_option("--speed,--baud", speed_,
                 "of the line in bit/s, else the usual one; auto: at which it answers")
      ->option_text("BAUD");
  groups_ = app.add_option("--groups", settings.groups, "what to read, else all: " + GroupNames())
                ->option_text("LETTERS")
                ->default_str(settings.groups);
  app.add_option("--from", from_, "first moment of the archives; else three days back")
      ->option_text("DATE");
  app.add_option("--to", to_, "last moment of the archives, else now; a day means all of it")
      ->option_text("DATE");
  app.add_option("--attempts", settings.attempts, "attempts at each request")
      ->check(WholeNumber(1, 1000))
      ->default_str(std::to_string(settings.attempts));
  app.add_option("--patience", patience_,
                 "without anything from the instrument, after which it ends; else 2m; 0: never")
      ->option_text("TIME")
      ->default_str(patience_);
  app.add_option("--clock-warning", clockWarning_,
                 "difference of the instrument's clock that is warned of; else 2m; 0: none")
      ->option_text("TIME")
      ->default_str(clockWarning_);
  app.add_option("--retry-gaps", settings.retryGaps,
                 "how often what is missing is asked for again; else once")
      ->check(WholeNumber(0, 100))
      ->option_text("N")
      ->default_str(std::to_string(settings.retryGaps));
  app.add_flag("--double-read", settings.doubleRead, "read each archive record twice and compare");
  app.add_flag("--validity", settings.validity,
               "the driver's validity test, under which it takes no archive record");
  app.add_option("--pause", settings.pause, "milliseconds after a failed attempt")
      ->check(WholeNumber(0, 600000));
  pace_.AddTo(app, app.add_flag("--follow", settings.follow,
                                "go on with new values until Ctrl-C (older kind)"));
}

void ReadParser::AddWish(CLI::App& app) {
  app.add_flag("--since-last", sinceLast_,
               "with --db: each archive from the last record that is kept");
  app.add_option_function<std::vector<std::string>>(
         "--fill",
         [this](const std::vector<std::string>& names) {
           fill_ = names.empty() ? "" : names.front();
         },
         "with --db: only what it lacks of the archives, the longest gap first, or the newest")
      ->expected(0, 1)
      ->transform(OneOf({"longest", "newest"}))
      ->option_text("[longest|newest]");
  askAgain_ = app.add_option("--ask-again", wish_.askAgain,
                             "with --fill: days after which it asks again for what the instrument "
                             "did not hold; else 30")
                  ->check(WholeNumber(0, 36500))
                  ->option_text("DAYS")
                  ->default_str(std::to_string(wish_.askAgain));
}

void ReadParser::AddTo(CLI::App& app) {
  line_.AddTo(app);
  AddReading(app);
  AddWish(app);
  AddReadingSinkOptions(app, read_.sinks);
  app.add_option("--trace", read_.trace, "keep what happens on the line, for irvela replay")
      ->option_text("FILE");
  line_.AddSimulatedTo(app);
  AddDriverOption(app, read_.driver);
  app.footer(
      "Examples:\n"
      "  irvela read --simulate 521\n"
      "  irvela read --port /dev/ttyUSB0 --number 5 --from 2016-09-01 --to 2016-09-04\n"
      "  irvela read --tcp gateway:4001 --kind k7 --groups TH --format json\n"
      "  irvela read --port /dev/ttyUSB0 --out readings --raw reading.raw -v\n"
      "  irvela read --port /dev/ttyUSB0 --groups T --follow --interval 1m\n"
      "  irvela read --port /dev/ttyUSB0 --db archive.db --fill\n"
      "Ctrl-C ends a reading and keeps what was read; a second one ends the program at once.\n"
      "Exit code: 0 everything read that the instrument has, 3 read with gaps, 1 the reading\n"
      "failed, 2 wrong usage, 130 interrupted, 143 terminated, 129 hung up.");
}

void ReadParser::FinishLine() {
  line_.Finish();
  read_.simulated.number = read_.settings.number;
}

// The archives of a simulated clock end where that clock stands.
void ReadParser::FinishPeriod() {
  ReadSettings& settings = read_.settings;
  const SYSTEMTIME now = line_.Clock().value_or(LocalNow());
  settings.to = to_.empty() ? now : RequireDate("--to", to_, Bound::kTo);
  settings.from = from_.empty() ? DaysBefore(settings.to, kDefaultDays)
                                : RequireDate("--from", from_, Bound::kFrom);
  if (IsEarlier(settings.to, settings.from)) throw UsageError("--from lies after --to");
}

// A simulated instrument's kind is known, and only one kind can be followed.
void ReadParser::FinishKind() {
  ReadSettings& settings = read_.settings;
  const bool any = kind_ == "auto";
  const bool k7 = any ? line_.Model().starts_with("k7") : kind_ == "k7";
  settings.kind = k7 ? tav::Mode::kK7 : tav::Mode::kOlder;
  if (k7 && settings.follow) throw UsageError("--follow goes with the older kind");
  read_.sinks.follow = settings.follow;
  read_.search.anyKind = any && line_.Model().empty() && !settings.follow;
}

void ReadParser::FinishSpeed() {
  read_.search.anySpeed = speed_ == "auto";
  if (speed_.empty() || read_.search.anySpeed) return;
  int baud = 0;
  if (!CLI::detail::lexical_cast(speed_, baud)) {
    throw UsageError("--speed " + speed_ + ": neither a number of bit/s nor auto");
  }
  read_.settings.baud = baud;
}

// A simulated clock that stands still has nothing to do with this machine's.
void ReadParser::FinishTimes() {
  constexpr std::chrono::seconds kNone(0);
  read_.settings.patience = RequireDuration("--patience", patience_, kNone);
  read_.settings.clockWarning = RequireDuration("--clock-warning", clockWarning_, kNone);
  if (line_.Clock()) read_.settings.clockWarning.reset();
}

// What is filled is archives, unless the letters say other things.
void ReadParser::FinishWish() {
  if (askAgain_->count() > 0 && !fill_) throw UsageError("--ask-again goes with --fill");
  if (!fill_ && !sinceLast_) return;
  const char* name = fill_ ? "--fill" : "--since-last";
  const std::string option(name);
  if (fill_ && sinceLast_) throw UsageError("--fill and --since-last: one of both");
  if (!read_.sinks.db) throw UsageError(option + " needs --db, the store that it looks into");
  if (read_.settings.follow) throw UsageError(option + " does not go with --follow");
  if (sinceLast_ && !from_.empty()) throw UsageError("--since-last says what --from would say");
  if (fill_ && groups_->count() == 0) read_.settings.groups = ArchiveGroups();
  wish_.fill = fill_.has_value();
  wish_.fromNamed = !from_.empty();
  wish_.toNamed = !to_.empty();
  if (fill_ == "newest") wish_.order = GapOrder::kNewest;
  read_.wish = wish_;
}

void ReadParser::Finish() {
  FinishLine();
  FinishKind();
  FinishSpeed();
  FinishPeriod();
  FinishTimes();
  FinishWish();
  pace_.Finish();
  const bool values =
      read_.settings.groups.find(static_cast<char>(tav::ReadGroup::kCurrent)) != std::string::npos;
  if (read_.pace.count > 0 && !values) throw UsageError("--count counts current values, group T");
}

}  // namespace host
