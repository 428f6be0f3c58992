#include "host/cli/command_line.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <sstream>

#include "host/cli/sink_options.h"
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
                         ->option_text("PORT");
  line->require_option(1);
  app.add_option("--number", simulate.settings.number, "network number")->check(CLI::Range(0, 255));
  app.footer(
      "Examples:\n"
      "  irvela simulate 521 --pty meter --line-speed 2400\n"
      "  irvela simulate 521 --tcp 4001 --fault flipped-bit:7\n"
      "It answers until Ctrl-C.");
  app.final_callback([&simulate, tcp] { simulate.tcp = tcp->count() > 0; });
}

void AddModels(CLI::App& app, ModelsOptions& models) {
  CLI::Option* fields = app.add_flag("--fields", models.fields,
                                     "what every column means: field, quantity, pipe, true unit");
  app.add_option_function<std::string>(
         "--format", [&models](const std::string& name) { models.json = name == "json"; },
         "of the fields: table or json")
      ->check(CLI::IsMember({"table", "json"}))
      ->option_text("NAME")
      ->default_str("table")
      ->needs(fields);
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
    readParser_.AddTo(*read_);
    AddDecode(*decode_, line_.decode);
    AddSimulate(*simulate_, line_.simulate);
    simulated_.AddTo(*simulate_);
    AddModels(*models_, line_.models);
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
    if (read_->parsed()) {
      line_.command = Command::kRead;
      readParser_.Finish();
    } else if (decode_->parsed()) {
      line_.command = Command::kDecode;
    } else if (simulate_->parsed()) {
      line_.command = Command::kSimulate;
      simulated_.Finish("simulate", line_.simulate.settings.model);
    } else {
      line_.command = Command::kModels;
    }
  }

  // Help and version come as errors of code 0.
  void Leave(const CLI::ParseError& error) {
    std::ostringstream text;
    line_.command = Command::kNone;
    line_.exitCode = app_.exit(error, text, text) == 0 ? kSuccess : kWrongUsage;
    line_.message = text.str();
  }

  void Refuse(const std::string& reason) {
    line_.command = Command::kNone;
    line_.exitCode = kWrongUsage;
    line_.message = "irvela: " + reason + '\n';
  }

  CommandLine line_;
  ReadParser readParser_{line_.read};
  SimulatedOptions simulated_{line_.simulate.settings};
  CLI::App app_{"Reads Irvela heat meters and gas correctors over a serial line."};
  CLI::App* read_ = app_.add_subcommand("read", "Reads an instrument and shows what it holds.");
  CLI::App* decode_ = app_.add_subcommand("decode", "Shows a stream that a reading kept.");
  CLI::App* simulate_ = app_.add_subcommand("simulate", "Is an instrument on a line.");
  CLI::App* models_ = app_.add_subcommand("models", "Lists the models and what their values mean.");
};

}  // namespace

CommandLine ParseCommandLine(const std::vector<std::string>& arguments) {
  return Parser().Parse(arguments);
}

}  // namespace host
