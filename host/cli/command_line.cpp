#include "host/cli/command_line.h"

#include <CLI/CLI.hpp>
#include <sstream>
#include <utility>

#include "host/cli/commands.h"
#include "host/cli/wrong_usage.h"
#include "host/reading/settings.h"
#include "host/system/exit_codes.h"

namespace host {
namespace {

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
    for (const CommandRow& row : Commands()) {
      CLI::App* app = app_.add_subcommand(row.name, row.about);
      commands_.push_back({app, row.make()});
      commands_.back().command->AddTo(*app);
    }
    RefuseFlagValues(app_);
  }

  CommandLine Parse(const std::vector<std::string>& arguments) {
    try {
      RefuseEmptyTexts(arguments);
      // The library wants them from the last one on.
      app_.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
      return Take();
    } catch (const CLI::ParseError& error) {
      return Leave(error, arguments);
    } catch (const UsageError& error) {
      return Refuse(error.what());
    } catch (const std::invalid_argument& error) {
      return Refuse(error.what());
    }
  }

 private:
  struct Known {
    CLI::App* app;
    std::unique_ptr<Command> command;
  };

  CommandLine Take() {
    for (Known& known : commands_) {
      if (!known.app->parsed()) continue;
      known.command->Finish();
      return {std::move(known.command), kSuccess, {}};
    }
    return Refuse("give a command");
  }

  // Help and version come as errors of code 0.
  CommandLine Leave(const CLI::ParseError& error, const std::vector<std::string>& arguments) {
    if (error.get_exit_code() != 0) return Refuse(UsageSentence(app_, error, arguments));
    std::ostringstream text;
    app_.exit(error, text, text);
    return {nullptr, kSuccess, text.str()};
  }

  static CommandLine Refuse(const std::string& reason) {
    return {nullptr, kWrongUsage, "irvela: " + reason + '\n'};
  }

  CLI::App app_{"Reads Irvela heat meters and gas correctors over a serial line."};
  std::vector<Known> commands_;
};

}  // namespace

CommandLine ParseCommandLine(const std::vector<std::string>& arguments) {
  return Parser().Parse(arguments);
}

}  // namespace host
