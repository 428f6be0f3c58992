#include <CLI/CLI.hpp>

#include "host/cli/commands.h"
#include "host/cli/dates.h"
#include "host/cli/selection_options.h"
#include "host/cli/sink_options.h"
#include "host/output/parameter_list.h"
#include "host/store/open_store.h"
#include "host/store/parameters.h"
#include "host/system/exit_codes.h"
#include "host/system/files.h"

namespace host {
namespace {

using Snapshots = std::vector<ParameterSnapshot>;

class ParamsCommand final : public Command {
 public:
  void AddTo(CLI::App& app) override;
  void Finish() override;
  int Run() override;

 private:
  Snapshots Load() const;
  std::string ShownChanges(const Snapshots& snapshots) const;
  std::string ShownValues(const Snapshots& snapshots) const;

  StoreChoice of_;
  SelectionParser chosen_{of_};
  std::string atText_;
  std::optional<SYSTEMTIME> at_;  // none: as known last
  bool history_ = false;          // what changed, instead of what is set
  bool json_ = false;
};

void ParamsCommand::AddTo(CLI::App& app) {
  chosen_.AddTo(app);
  CLI::Option* at =
      app.add_option("--at", atText_, "as they were then, else as known last")->option_text("DATE");
  app.add_flag("--history", history_, "all that changed; with --from, --to what did then");
  for (const char* other : {"--from", "--to", "--history"}) at->excludes(app.get_option(other));
  AddJsonOption(app, json_);
  app.footer(
      "Examples:\n"
      "  irvela params --serial 12822465\n"
      "  irvela params --db archive.db --from 2016-09-01 --to 2016-09-30\n"
      "Dates are those of the instrument's clock.");
}

void ParamsCommand::Finish() {
  chosen_.Finish();
  if (!atText_.empty()) at_ = RequireDate("--at", atText_, Bound::kTo);
  if (of_.selection.from || of_.selection.to) history_ = true;
}

Snapshots ParamsCommand::Load() const {
  const std::unique_ptr<Database> database = OpenStore(of_.db.value_or(""));
  Snapshots snapshots;
  database->Read([&] { snapshots = FindSnapshots(*database, of_.selection); });
  return snapshots;
}

std::string ParamsCommand::ShownChanges(const Snapshots& snapshots) const {
  const auto changes = FindChanges(snapshots, of_.selection.from, of_.selection.to);
  return json_ ? ChangesJson(changes) : ChangesText(changes);
}

// People are told of changes too where there are any.
std::string ParamsCommand::ShownValues(const Snapshots& snapshots) const {
  const auto newest = NewestSnapshots(snapshots, at_);
  if (json_) return ParametersJson(newest);
  const auto changes = FindChanges(snapshots, {}, at_);
  const std::string values = ParametersText(newest);
  return changes.empty() ? values : values + '\n' + ChangesText(changes);
}

int ParamsCommand::Run() {
  const Snapshots snapshots = Load();
  WriteStandardOutput(history_ ? ShownChanges(snapshots) : ShownValues(snapshots));
  return kSuccess;
}

}  // namespace

std::unique_ptr<Command> MakeParamsCommand() { return std::make_unique<ParamsCommand>(); }

}  // namespace host
