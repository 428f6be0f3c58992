#include <fmt/format.h>

#include <utility>

#include "host/cli/commands.h"
#include "host/store/kept_rows.h"
#include "host/store/open_store.h"
#include "host/system/clock.h"
#include "host/system/exit_codes.h"

namespace host {
namespace {

// Sections of one instrument. What is shown has no place to tell several apart.
std::vector<StoredSection> SectionsOfOne(Database& database, const Selection& selection) {
  auto instruments = ByInstrument(FindSections(database, selection));
  if (instruments.empty()) {
    throw std::runtime_error(database.Name() + " keeps nothing of that; irvela list tells more");
  }
  if (instruments.size() == 1) return std::move(instruments.front());
  std::string names;
  for (const auto& sections : instruments) names += "\n  " + NameOf(sections.front().of);
  throw UsageError(fmt::format("{} instruments are kept there; say which by --serial:{}",
                               instruments.size(), names));
}

}  // namespace

int Show(const ShowOptions& options) {
  const std::unique_ptr<Database> database = OpenStore(options.of.db.value_or(""));
  const Selection& selection = options.of.selection;
  Screen screen;
  database->Read([&] {
    const std::vector<StoredSection> sections = SectionsOfOne(*database, selection);
    const auto sinks = MakeSinks(options.sinks, screen);
    sinks->BeginRun({std::nullopt, database->Name(), LocalNow()});
    TellKept(*database, sections, selection, *sinks);
    sinks->Keep();
    sinks->EndRun({});
  });
  return kSuccess;
}

}  // namespace host
