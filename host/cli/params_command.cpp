#include "host/cli/commands.h"
#include "host/output/parameter_list.h"
#include "host/store/open_store.h"
#include "host/store/parameters.h"
#include "host/system/exit_codes.h"
#include "host/system/files.h"

namespace host {
namespace {

std::vector<ParameterSnapshot> Load(const ParamsOptions& options) {
  const std::unique_ptr<Database> database = OpenStore(options.store.db.value_or(""));
  std::vector<ParameterSnapshot> snapshots;
  database->Read([&] { snapshots = FindSnapshots(*database, options.store.selection); });
  return snapshots;
}

std::string ShownChanges(const ParamsOptions& options,
                         const std::vector<ParameterSnapshot>& snapshots) {
  const Selection& selection = options.store.selection;
  const auto changes = FindChanges(snapshots, selection.from, selection.to);
  return options.json ? ChangesJson(changes) : ChangesText(changes);
}

// People are told of changes too where there are any.
std::string ShownValues(const ParamsOptions& options,
                        const std::vector<ParameterSnapshot>& snapshots) {
  const auto newest = NewestSnapshots(snapshots, options.at);
  if (options.json) return ParametersJson(newest);
  const auto changes = FindChanges(snapshots, {}, options.at);
  const std::string values = ParametersText(newest);
  return changes.empty() ? values : values + '\n' + ChangesText(changes);
}

}  // namespace

int ShowParameters(const ParamsOptions& options) {
  const std::vector<ParameterSnapshot> snapshots = Load(options);
  WriteStandardOutput(options.history ? ShownChanges(options, snapshots)
                                      : ShownValues(options, snapshots));
  return kSuccess;
}

}  // namespace host
