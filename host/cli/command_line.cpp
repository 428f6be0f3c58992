#include "host/cli/command_line.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <sstream>

#include "host/cli/dates.h"
#include "host/cli/exit_codes.h"
#include "host/line/open_line.h"

namespace host {
namespace {

constexpr int kDefaultDays = 3;

// Options whose text needs a second look once all are known.
struct Texts {
  std::string simulate;
  std::string kind;
  std::string from;
  std::string to;
  std::string clock;
  std::vector<std::string> faults;
  std::string units;
  int baud = 0;
  bool all = false;
};

const std::map<std::string, Format> kFormats = {
    {"table", Format::kTable}, {"json", Format::kJson}, {"csv", Format::kCsv}};

void AddDisplay(CLI::App& app, DisplayOptions& display, Texts& texts) {
  app.add_option("--format", display.format, "table, json or csv")
      ->transform(CLI::CheckedTransformer(kFormats, CLI::ignore_case))
      ->option_text("NAME")
      ->default_str("table");
  CLI::Option* rows = app.add_option("--rows", display.rows, "rows of a section in a table")
                          ->check(CLI::Range(2, 1000000))
                          ->option_text("N");
  app.add_flag("--all", texts.all, "all rows of a section")->excludes(rows);
}

void AddSimulated(CLI::App& app, simulator::Settings& settings, Texts& texts) {
  app.add_option("--seed", settings.seed, "the simulated values; the same seed gives the same");
  app.add_option("--line-speed", settings.lineSpeed,
                 "bit/s at which the simulated line paces its bytes; 0: at once")
      ->check(CLI::Range(0, 10000000));
  app.add_option("--units", texts.units,
                 "units of the simulated instrument, 0, 1 or 2 (see irvela models)")
      ->option_text("CODE");
  app.add_option("--fault", texts.faults, "what goes wrong, on every Nth reply (see irvela models)")
      ->option_text("KIND[:N] ...")
      ->expected(1)
      ->take_all();
  app.add_option("--clock", texts.clock, "a simulated clock that stands still")
      ->option_text("TIME");
}

void AddLine(CLI::App& app, ReadOptions& read, Texts& texts) {
  CLI::Option_group* line = app.add_option_group("Line", "where the instrument is, one of");
  line->add_option("--port", read.port, "serial device: /dev/ttyUSB0, COM3")->option_text("DEVICE");
  line->add_option("--tcp", read.tcp, "gateway that passes raw bytes")->option_text("HOST:PORT");
  line->add_option("--simulate", texts.simulate, "a simulated instrument (see irvela models)")
      ->option_text("MODEL");
  line->require_option(1);
}

void AddReading(CLI::App& app, ReadOptions& read, Texts& texts) {
  ReadSettings& settings = read.settings;
  app.add_option("--number", settings.number, "network number of the instrument")
      ->check(CLI::Range(0, 255));
  app.add_option("--kind", texts.kind, "protocol: older (52x, 72x) or k7")
      ->check(CLI::IsMember({"older", "k7"}));
  app.add_option("--baud", texts.baud, "line speed in bit/s")->check(CLI::PositiveNumber);
  app.add_option("--groups", settings.groups,
                 "what to read: B database, T current values, M months, S days, H hours, E logs")
      ->option_text("LETTERS")
      ->default_str(settings.groups);
  app.add_option("--from", texts.from, "first moment of the archives; else three days back")
      ->option_text("DATE");
  app.add_option("--to", texts.to, "last moment of the archives, else now; a day means all of it")
      ->option_text("DATE");
  app.add_option("--attempts", settings.attempts, "attempts at each request")
      ->check(CLI::Range(1, 1000))
      ->default_str(std::to_string(settings.attempts));
  app.add_flag("--double-read", settings.doubleRead, "read each archive record twice and compare");
  app.add_flag("--validity", settings.validity,
               "the driver's validity test, under which it takes no archive record");
  app.add_option("--pause", settings.pause, "milliseconds after a failed attempt")
      ->check(CLI::Range(0, 600000));
  app.add_flag("--follow", settings.follow, "go on with new values until Ctrl-C (older kind)");
}

void AddRead(CLI::App& app, ReadOptions& read, Texts& texts) {
  AddLine(app, read, texts);
  AddReading(app, read, texts);
  AddDisplay(app, read.display, texts);
  app.add_option("--out", read.out, "a CSV file per section goes there")->option_text("DIR");
  app.add_option("--raw", read.raw, "keep the driver's stream, for irvela decode")
      ->option_text("FILE");
  app.add_flag("-v,--verbose", read.verbose, "show the driver's messages");
  AddSimulated(app, read.simulated, texts);
#if defined(_WIN32)
  app.add_option("--driver", read.driver, "TKSplDrv.dll, else the one beside this program")
      ->option_text("PATH");
#endif
  app.footer(
      "Examples:\n"
      "  irvela read --simulate 521\n"
      "  irvela read --port /dev/ttyUSB0 --number 5 --from 2016-09-01 --to 2016-09-04\n"
      "  irvela read --tcp gateway:4001 --kind k7 --groups TH --format json\n"
      "  irvela read --port /dev/ttyUSB0 --out readings --raw reading.raw -v\n"
      "  irvela read --port /dev/ttyUSB0 --groups T --follow\n"
      "Ctrl-C ends a reading and keeps what was read; a second one ends the program at once.\n"
      "Exit code: 0 read, 1 the reading failed, 2 wrong usage, 130 interrupted.");
}

void AddDecode(CLI::App& app, DecodeOptions& decode, Texts& texts) {
  app.add_option("file", decode.file, "what irvela read --raw kept")
      ->required()
      ->option_text("FILE");
  app.add_option("--out", decode.out, "a CSV file per section goes there")->option_text("DIR");
  AddDisplay(app, decode.display, texts);
  app.footer(
      "Examples:\n"
      "  irvela decode reading.raw\n"
      "  irvela decode reading.raw --format json");
}

void AddSimulate(CLI::App& app, SimulateOptions& simulate, Texts& texts) {
  app.add_option("model", texts.simulate, "the instrument (see irvela models)")
      ->required()
      ->option_text("MODEL");
  CLI::Option_group* line = app.add_option_group("Line", "where it answers, one of");
  line->add_option("--pty", simulate.pty, "a pseudo terminal with this link to it")
      ->option_text("LINK");
  CLI::Option* tcp = line->add_option("--tcp", simulate.port, "a TCP port; 0 takes a free one")
                         ->option_text("PORT");
  line->require_option(1);
  app.add_option("--number", simulate.settings.number, "network number")->check(CLI::Range(0, 255));
  AddSimulated(app, simulate.settings, texts);
  app.footer(
      "Examples:\n"
      "  irvela simulate 521 --pty meter --line-speed 2400\n"
      "  irvela simulate 521 --tcp 4001 --fault flipped-bit:7\n"
      "It answers until Ctrl-C.");
  app.final_callback([&simulate, tcp] { simulate.tcp = tcp->count() > 0; });
}

std::string NamesOf(std::span<const simulator::Choice> choices) {
  std::string names;
  for (const simulator::Choice& choice : choices) {
    names += (names.empty() ? "" : ", ") + std::string(choice.name);
  }
  return names;
}

std::string Chosen(const std::string& what, const std::string& name,
                   std::span<const simulator::Choice> choices) {
  const bool known = std::any_of(choices.begin(), choices.end(),
                                 [&](const auto& choice) { return choice.name == name; });
  if (known) return name;
  throw UsageError(fmt::format("{}: there is no {}; there are {}", what, name, NamesOf(choices)));
}

SYSTEMTIME DateOf(const char* option, const std::string& text, Bound bound) {
  if (const auto date = ParseDate(text, bound)) return *date;
  throw UsageError(
      fmt::format("{} {}: a date looks like 2016-09-04 or \"2016-09-04 13:00\"", option, text));
}

// "noise", "noise:7", "frozen:20:240".
simulator::Fault FaultOf(const std::string& text, const std::string& model) {
  const std::vector<std::string> parts = CLI::detail::split(text, ':');
  simulator::Fault fault;
  fault.kind = Chosen("--fault of " + model, parts[0], simulator::FaultsOf(model));
  const std::size_t most = fault.kind == "frozen" ? 3 : 2;
  int* const numbers[] = {&fault.every, &fault.length};
  bool good = parts.size() <= most && text.back() != ':';
  for (std::size_t i = 1; good && i < parts.size(); ++i) {
    int& number = *numbers[i - 1];
    good = CLI::detail::lexical_cast(parts[i], number) && number >= 1;
  }
  if (!good) throw UsageError(fmt::format("--fault {}: a colon needs a number from 1 on", text));
  return fault;
}

void FinishSimulated(simulator::Settings& settings, const Texts& texts, const char* option) {
  settings.model = Chosen(option, texts.simulate, simulator::Models());
  const std::string& model = settings.model;
  for (const std::string& fault : texts.faults) settings.faults.push_back(FaultOf(fault, model));
  if (!texts.units.empty()) {
    const auto codes = simulator::UnitsOf(model);
    settings.special.unitsCode = std::stoi(Chosen("--units of " + model, texts.units, codes));
  }
  if (texts.clock.empty()) return;
  const SYSTEMTIME clock = DateOf("--clock", texts.clock, Bound::kFrom);
  settings.clock = {clock.wYear, clock.wMonth,  clock.wDay,
                    clock.wHour, clock.wMinute, clock.wSecond};
}

// The archives of a simulated clock end where that clock stands.
void FinishPeriod(ReadSettings& settings, const Texts& texts) {
  const SYSTEMTIME now =
      texts.clock.empty() ? LocalNow() : DateOf("--clock", texts.clock, Bound::kFrom);
  settings.to = texts.to.empty() ? now : DateOf("--to", texts.to, Bound::kTo);
  settings.from = texts.from.empty() ? DaysBefore(settings.to, kDefaultDays)
                                     : DateOf("--from", texts.from, Bound::kFrom);
  if (IsEarlier(settings.to, settings.from)) throw UsageError("--from lies after --to");
}

void FinishRead(ReadOptions& read, const Texts& texts) {
  read.simulate = !texts.simulate.empty();
  if (read.simulate) {
    FinishSimulated(read.simulated, texts, "--simulate");
    read.simulated.number = read.settings.number;
  } else if (!texts.clock.empty() || !texts.faults.empty() || !texts.units.empty()) {
    throw UsageError("--clock, --fault and --units go with --simulate");
  }
  if (!read.tcp.empty()) CheckLineAddress("tcp:" + read.tcp);
  const bool k7 = texts.kind.empty() ? texts.simulate.starts_with("k7") : texts.kind == "k7";
  read.settings.kind = k7 ? Kind::kK7 : Kind::kOlder;
  if (k7 && read.settings.follow) throw UsageError("--follow goes with the older kind");
  if (texts.baud > 0) read.settings.baud = texts.baud;
  FinishPeriod(read.settings, texts);
}

class Parser {
 public:
  Parser() {
    app_.name("irvela");
    app_.set_version_flag("--version", std::string("irvela ") + IRVELA_VERSION);
    app_.require_subcommand(1);
    app_.failure_message([](const CLI::App*, const CLI::Error& error) {
      return fmt::format("irvela: {} (--help tells more)\n", error.what());
    });
    app_.footer("Start with: irvela read --simulate 521");
    AddRead(*read_, line_.read, texts_);
    AddDecode(*decode_, line_.decode, texts_);
    AddSimulate(*simulate_, line_.simulate, texts_);
  }

  CommandLine Parse(std::vector<std::string> arguments) {
    std::reverse(arguments.begin(), arguments.end());  // as the library wants them
    try {
      app_.parse(std::move(arguments));
      Finish();
    } catch (const CLI::ParseError& error) {
      Leave(error);
    } catch (const UsageError& error) {
      Refuse(error.what());
    } catch (const std::invalid_argument& error) {
      Refuse(error.what());
    }
    return line_;
  }

 private:
  void Finish() {
    if (texts_.all) line_.read.display.rows = line_.decode.display.rows = 0;
    if (read_->parsed()) {
      line_.command = Command::kRead;
      FinishRead(line_.read, texts_);
    } else if (decode_->parsed()) {
      line_.command = Command::kDecode;
    } else if (simulate_->parsed()) {
      line_.command = Command::kSimulate;
      FinishSimulated(line_.simulate.settings, texts_, "simulate");
    } else {
      line_.command = Command::kModels;
    }
  }

  // Help and version come as errors of code 0.
  void Leave(const CLI::ParseError& error) {
    std::ostringstream text;
    line_.command = Command::kNone;
    line_.exitCode = app_.exit(error, text, text) == 0 ? kRead : kWrongUsage;
    line_.message = text.str();
  }

  void Refuse(const std::string& reason) {
    line_.command = Command::kNone;
    line_.exitCode = kWrongUsage;
    line_.message = "irvela: " + reason + '\n';
  }

  CommandLine line_;
  Texts texts_;
  CLI::App app_{"Reads Irvela heat meters and gas correctors over a serial line."};
  CLI::App* read_ = app_.add_subcommand("read", "Reads an instrument and shows what it holds.");
  CLI::App* decode_ = app_.add_subcommand("decode", "Shows a stream that a reading kept.");
  CLI::App* simulate_ = app_.add_subcommand("simulate", "Is an instrument on a line.");
  CLI::App* models_ = app_.add_subcommand("models", "Lists what can be simulated.");
};

}  // namespace

CommandLine ParseCommandLine(const std::vector<std::string>& arguments) {
  return Parser().Parse(arguments);
}

}  // namespace host
