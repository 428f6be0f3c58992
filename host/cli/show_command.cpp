#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <utility>

#include "host/cli/commands.h"
#include "host/cli/selection_options.h"
#include "host/cli/sink_options.h"
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

class ShowCommand final : public Command {
 public:
  void AddTo(CLI::App& app) override;
  void Finish() override { chosen_.Finish(); }
  int Run() override;

 private:
  StoreChoice of_;
  SelectionParser chosen_{of_};
  SinkOptions sinks_;
};

void ShowCommand::AddTo(CLI::App& app) {
  chosen_.AddTo(app);
  chosen_.AddGroupsTo(app);
  AddSinkOptions(app, sinks_);
  app.footer(
      "Examples:\n"
      "  irvela show --groups H --from 2016-09-01 --to 2016-09-04\n"
      "  irvela show --db archive.db --serial 12822465 --system ТВ1 --groups S --units gj --all\n"
      "  irvela show --db archive.db --serial 12822465 --format csv > archive.csv");
}

int ShowCommand::Run() {
  const std::unique_ptr<Database> database = OpenStore(of_.db.value_or(""));
  const Selection& selection = of_.selection;
  Screen screen;
  database->Read([&] {
    const std::vector<StoredSection> sections = SectionsOfOne(*database, selection);
    const auto sinks = MakeSinks(sinks_, screen);
    sinks->BeginRun({std::nullopt, database->Name(), LocalNow()});
    TellKept(*database, sections, selection, *sinks);
    sinks->Keep();
    sinks->EndRun({});
  });
  return kSuccess;
}

}  // namespace

std::unique_ptr<Command> MakeShowCommand() { return std::make_unique<ShowCommand>(); }

}  // namespace host
