#include "host/cli/wrong_usage.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <string_view>

#include "host/reading/settings.h"

namespace host {
namespace {

bool Has(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

// The library's own words begin with what they are about.
std::string_view SubjectOf(std::string_view text) {
  return text.substr(0, text.find_first_of(": "));
}

bool IsOption(std::string_view word) { return word.starts_with('-'); }

// A value that stands in the word itself: "--out=".
bool EndsBeforeValue(std::string_view word) {
  return word.starts_with("--") && word.find('=') == word.size() - 1;
}

std::string Unknown(const std::string& word) {
  if (IsOption(word)) return fmt::format("there is no option {}", word);
  return fmt::format("{} is a word too many", word);
}

std::string WithoutCommand(const CLI::App& app, const std::vector<std::string>& arguments) {
  std::vector<std::string> names;
  for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
    names.push_back(command->get_name());
  }
  const std::string known = fmt::format("{}", fmt::join(names, ", "));
  if (arguments.empty()) return fmt::format("give a command, one of {}", known);
  if (IsOption(arguments.front())) return Unknown(arguments.front());
  return fmt::format("there is no command {}; there are {}", arguments.front(), known);
}

// "Exactly 1 option from [--port,--tcp] is required", "file is required".
std::string Missing(std::string_view text) {
  const std::size_t open = text.find('[');
  if (open == std::string_view::npos) return fmt::format("the {} is missing", SubjectOf(text));
  std::string names(text.substr(open + 1, text.find(']') - open - 1));
  for (std::size_t at = 0; (at = names.find(',', at)) != std::string::npos; ++at) {
    names.insert(at + 1, " ");
  }
  return fmt::format("give exactly one of {}", names);
}

// "--rows: 1 required INT missing", "--rows: At Most 1 required but received 2", "all was given a
// disallowed flag override".
std::string WrongCount(std::string_view text) {
  if (Has(text, "override")) return fmt::format("the option {} takes no value", SubjectOf(text));
  if (Has(text, "received")) return fmt::format("{} is given more than once", SubjectOf(text));
  return fmt::format("{} needs a value", SubjectOf(text));
}

// "--format requires --fields", "--rows excludes --all".
std::string WrongCompany(std::string_view text) {
  const std::string_view other = text.substr(text.find_last_of(' ') + 1);
  if (Has(text, "excludes")) {
    return fmt::format("{} and {} exclude each other", SubjectOf(text), other);
  }
  return fmt::format("{} goes with {} only", SubjectOf(text), other);
}

std::string Complaint(const CLI::App& app, const CLI::ParseError& error,
                      const std::vector<std::string>& arguments) {
  const std::string text = error.what();
  switch (static_cast<CLI::ExitCodes>(error.get_exit_code())) {
    case CLI::ExitCodes::RequiredError:
      return app.get_subcommands().empty() ? WithoutCommand(app, arguments) : Missing(text);
    case CLI::ExitCodes::ArgumentMismatch:
      return WrongCount(text);
    case CLI::ExitCodes::ExtrasError:
      return Unknown(app.remaining(true).front());
    case CLI::ExitCodes::RequiresError:
    case CLI::ExitCodes::ExcludesError:
      return WrongCompany(text);
    default:
      return text;
  }
}

}  // namespace

void RefuseEmptyTexts(const std::vector<std::string>& arguments) {
  std::string before;
  for (const std::string& word : arguments) {
    if (EndsBeforeValue(word)) before = word.substr(0, word.size() - 1);
    if (word.empty() || EndsBeforeValue(word)) {
      throw UsageError(fmt::format("{}: an empty text; give a value, or leave it out",
                                   IsOption(before) ? before : "command line"));
    }
    before = word;
  }
}

std::string UsageSentence(const CLI::App& app, const CLI::ParseError& error,
                          const std::vector<std::string>& arguments) {
  std::string command = app.get_name();
  for (const CLI::App* parsed : app.get_subcommands()) command += ' ' + parsed->get_name();
  return fmt::format("{} ({} --help tells more)", Complaint(app, error, arguments), command);
}

}  // namespace host
