#include "host/cli/selection_options.h"

#include <CLI/CLI.hpp>
#include <cctype>

#include "host/cli/dates.h"
#include "host/cli/sink_options.h"

namespace host {
namespace {

void CheckGroups(std::string& groups) {
  const std::string known = AllReadGroups();
  for (char& letter : groups) {
    letter = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
    if (known.find(letter) != std::string::npos) continue;
    throw UsageError("--groups " + groups + ": the letters are " + known);
  }
}

}  // namespace

void SelectionParser::AddTo(CLI::App& app) {
  Selection& selection = choice_.selection;
  AddStoreOption(app, choice_.db);
  app.add_option("--serial", selection.serial, "serial number of the instrument, else all of them")
      ->option_text("NUMBER");
  app.add_option("--system", selection.system, "part of the instrument: ТВ1; else all of them")
      ->option_text("NAME");
  app.add_option("--from", from_, "first moment; else all that is kept")->option_text("DATE");
  app.add_option("--to", to_, "last moment; a day means all of it")->option_text("DATE");
}

void SelectionParser::AddGroupsTo(CLI::App& app) {
  app.add_option("--groups", choice_.selection.groups, "letters as for read, else all")
      ->option_text("LETTERS");
}

void SelectionParser::Finish() {
  Selection& selection = choice_.selection;
  CheckGroups(selection.groups);
  if (!from_.empty()) selection.from = RequireDate("--from", from_, Bound::kFrom);
  if (!to_.empty()) selection.to = RequireDate("--to", to_, Bound::kTo);
  if (selection.from && selection.to && IsEarlier(*selection.to, *selection.from)) {
    throw UsageError("--from lies after --to");
  }
}

}  // namespace host
