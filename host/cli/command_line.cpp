#include "host/cli/command_line.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <map>
#include <sstream>

#include "host/cli/checks.h"
#include "host/cli/durations.h"
#include "host/cli/sink_options.h"
#include "host/cli/wrong_usage.h"
#include "host/system/exit_codes.h"

namespace host {
namespace {

void AddDecode(CLI::App& app, DecodeOptions& decode) {
  app.add_option("file", decode.file, "what irvela read --raw kept")
      ->required()
      ->option_text("FILE");
  AddSinkOptions(app, decode.sinks);
  app.footer(
      "Examples:\n"
      "  irvela decode reading.raw\n"
      "  irvela decode reading.raw --format json");
}

void AddSimulate(CLI::App& app, SimulateOptions& simulate) {
  app.add_option("model", simulate.settings.model, "the instrument (see irvela models)")
      ->required()
      ->option_text("MODEL");
  CLI::Option_group* line = app.add_option_group("Line", "where it answers, one of");
  line->add_option("--pty", simulate.pty, "a pseudo terminal with this link to it")
      ->option_text("LINK");
  CLI::Option* tcp = line->add_option("--tcp", simulate.port, "a TCP port; 0 takes a free one")
                         ->check(WholeNumber(0, 65535))
                         ->option_text("PORT");
  line->require_option(1);
  app.add_option("--number", simulate.settings.number, "network number")
      ->check(WholeNumber(0, 255));
  app.footer(
      "Examples:\n"
      "  irvela simulate 521 --pty meter --line-speed 2400\n"
      "  irvela simulate 521 --tcp 4001 --fault flipped-bit:7\n"
      "It answers until Ctrl-C.");
  app.final_callback([&simulate, tcp] { simulate.tcp = tcp->count() > 0; });
}

void AddList(CLI::App& app, ListOptions& list) {
  AddStoreOption(app, list.db);
  app.add_option_function<std::string>(
         "--format", [&list](const std::string& name) { list.json = name == "json"; },
         "table or json")
      ->transform(OneOf({"table", "json"}))
      ->option_text("NAME")
      ->default_str("table");
  app.footer(
      "Examples:\n"
      "  irvela list\n"
      "  irvela list --db archive.db --format json");
}

void AddShow(CLI::App& app, SelectionParser& selection, ShowOptions& show) {
  selection.AddTo(app);
  AddSinkOptions(app, show.sinks);
  app.footer(
      "Examples:\n"
      "  irvela show --groups H --from 2016-09-01 --to 2016-09-04\n"
      "  irvela show --db archive.db --serial 12822465 --system ТВ1 --groups S --units gj --all\n"
      "  irvela show --db archive.db --serial 12822465 --format csv > archive.csv");
}

const std::map<std::string, ExportForm> kExportForms = {
    {"csv", ExportForm::kCsv}, {"jsonl", ExportForm::kJsonLines}, {"influx", ExportForm::kInflux}};

void AddExport(CLI::App& app, SelectionParser& selection, ExportOptions& options) {
  selection.AddTo(app);
  app.add_option_function<std::string>(
         "--format", [&options](const std::string& name) { options.form = kExportForms.at(name); },
         "csv, jsonl: an object a line, or influx: InfluxDB's line protocol")
      ->transform(OneOf({"csv", "jsonl", "influx"}))
      ->option_text("NAME")
      ->default_str("csv");
  AddUnitsOption(app, options.units);
  CLI::Option* out = app.add_option("--out", options.out, "file, else the standard output");
  out->option_text("FILE");
  app.add_flag("--force", options.force, "write the file over")->needs(out);
  app.add_option_function<std::string>(
         "--utc-offset",
         [&options](const std::string& text) { options.utcOffset = RequireOffset(text); },
         "of the instruments' clocks, for influx: +03:00; else this machine's winter time")
      ->option_text("HH:MM");
  app.footer(
      "Examples:\n"
      "  irvela export --groups H --from 2016-09-01 > hours.csv\n"
      "  irvela export --db archive.db --serial 12822465 --format jsonl --out archive.jsonl\n"
      "  irvela export --groups HS --format influx --utc-offset +03:00 --out points.txt");
}

void AddModels(CLI::App& app, ModelsOptions& models) {
  CLI::Option* fields = app.add_flag("--fields", models.fields,
                                     "what every column means: field, quantity, pipe, true unit");
  app.add_option_function<std::string>(
         "--format", [&models](const std::string& name) { models.json = name == "json"; },
         "of the fields: table or json")
      ->transform(OneOf({"table", "json"}))
      ->option_text("NAME")
      ->default_str("table")
      ->needs(fields);
}

// "--all=no" would else be taken in some way.
void RefuseFlagValues(CLI::App& app) {
  for (CLI::Option* option : app.get_options()) {
    if (option->get_expected_max() == 0) option->disable_flag_override();
  }
  for (CLI::App* part : app.get_subcommands([](CLI::App*) { return true; }))
    RefuseFlagValues(*part);
}

class Parser {
 public:
  Parser() {
    app_.name("irvela");
    app_.set_version_flag("--version", std::string("irvela ") + IRVELA_VERSION);
    app_.require_subcommand(1);
    app_.footer("Start with: irvela read --simulate 521");
    readParser_.AddTo(*read_);
    AddDecode(*decode_, line_.decode);
    AddList(*list_, line_.list);
    AddShow(*show_, shown_, line_.show);
    AddExport(*export_, exported_, line_.exported);
    paramsParser_.AddTo(*params_);
    gapsParser_.AddTo(*gaps_);
    AddSimulate(*simulate_, line_.simulate);
    simulated_.AddTo(*simulate_);
    AddModels(*models_, line_.models);
    RefuseFlagValues(app_);
  }

  CommandLine Parse(const std::vector<std::string>& arguments) {
    try {
      RefuseEmptyTexts(arguments);
      // The library wants them from the last one on.
      app_.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
      Finish();
    } catch (const CLI::ParseError& error) {
      Leave(error, arguments);
    } catch (const UsageError& error) {
      Refuse(error.what());
    } catch (const std::invalid_argument& error) {
      Refuse(error.what());
    }
    return line_;
  }

 private:
  void Finish() {
    if (read_->parsed()) {
      line_.command = Command::kRead;
      readParser_.Finish();
    } else if (decode_->parsed()) {
      line_.command = Command::kDecode;
      if (line_.decode.file == "-") throw UsageError("decode -: it reads a file, not a pipe");
    } else if (list_->parsed()) {
      line_.command = Command::kList;
    } else if (show_->parsed()) {
      line_.command = Command::kShow;
      shown_.Finish();
    } else if (export_->parsed()) {
      line_.command = Command::kExport;
      exported_.Finish();
    } else if (params_->parsed()) {
      line_.command = Command::kParams;
      paramsParser_.Finish();
    } else if (gaps_->parsed()) {
      line_.command = Command::kGaps;
      gapsParser_.Finish();
    } else if (simulate_->parsed()) {
      line_.command = Command::kSimulate;
      simulated_.Finish("simulate", line_.simulate.settings.model);
    } else {
      line_.command = Command::kModels;
    }
  }

  // Help and version come as errors of code 0.
  void Leave(const CLI::ParseError& error, const std::vector<std::string>& arguments) {
    if (error.get_exit_code() != 0) return Refuse(UsageSentence(app_, error, arguments));
    std::ostringstream text;
    app_.exit(error, text, text);
    line_.command = Command::kNone;
    line_.exitCode = kSuccess;
    line_.message = text.str();
  }

  void Refuse(const std::string& reason) {
    line_.command = Command::kNone;
    line_.exitCode = kWrongUsage;
    line_.message = "irvela: " + reason + '\n';
  }

  CommandLine line_;
  ReadParser readParser_{line_.read};
  ParamsParser paramsParser_{line_.params};
  GapsParser gapsParser_{line_.gaps};
  SimulatedOptions simulated_{line_.simulate.settings};
  SelectionParser shown_{line_.show.of};
  SelectionParser exported_{line_.exported.of};
  CLI::App app_{"Reads Irvela heat meters and gas correctors over a serial line."};
  CLI::App* read_ = app_.add_subcommand("read", "Reads an instrument and shows what it holds.");
  CLI::App* decode_ = app_.add_subcommand("decode", "Shows a stream that a reading kept.");
  CLI::App* list_ = app_.add_subcommand("list", "Lists what the store keeps.");
  CLI::App* show_ = app_.add_subcommand("show", "Shows what the store keeps of an instrument.");
  CLI::App* export_ = app_.add_subcommand("export", "Writes what the store keeps, a row a line.");
  CLI::App* params_ =
      app_.add_subcommand("params", "Shows parameters of instruments, and what changed.");
  CLI::App* gaps_ = app_.add_subcommand("gaps", "Shows which records the store lacks.");
  CLI::App* simulate_ = app_.add_subcommand("simulate", "Is an instrument on a line.");
  CLI::App* models_ = app_.add_subcommand("models", "Lists the models and what their values mean.");
};

}  // namespace

CommandLine ParseCommandLine(const std::vector<std::string>& arguments) {
  return Parser().Parse(arguments);
}

}  // namespace host
