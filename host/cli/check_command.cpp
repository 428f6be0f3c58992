#include <CLI/CLI.hpp>
#include <algorithm>

#include "host/checks/rules.h"
#include "host/cli/checks.h"
#include "host/cli/commands.h"
#include "host/cli/durations.h"
#include "host/cli/selection_options.h"
#include "host/cli/sink_options.h"
#include "host/output/finding_list.h"
#include "host/store/open_store.h"
#include "host/system/exit_codes.h"
#include "host/system/files.h"

namespace host {
namespace {

class CheckCommand final : public Command {
 public:
  void AddTo(CLI::App& app) override;
  void Finish() override;
  int Run() override;

 private:
  void AddLimits(CLI::App& app);

  StoreChoice of_;
  SelectionParser chosen_{of_};
  CheckOptions options_;
  std::vector<std::string> rules_;  // by name; none: all of them
  bool listRules_ = false;          // instead of a check
  bool json_ = false;
  std::string clockLimit_;
};

void CheckCommand::AddTo(CLI::App& app) {
  chosen_.AddTo(app);
  app.add_option("--rule", rules_, "what to check, else everything; may be given again")
      ->transform(OneOf(RuleNames()))
      ->option_text("NAME");
  app.add_flag("--rules", listRules_, "list the rules");
  AddLimits(app);
  AddJsonOption(app, json_);
  app.footer(
      "Examples:\n"
      "  irvela check --db archive.db\n"
      "  irvela check --serial 12822465 --from 2016-09-01 --rule hours-days --rule totals\n"
      "Exit code: 0 nothing found, or only notes, 3 something found, 1 the store cannot be read,\n"
      "2 wrong usage.");
}

void CheckCommand::AddLimits(CLI::App& app) {
  app.add_option("--tolerance", options_.tolerance, "of sums, in percent; else 0.1")
      ->check(CLI::Range(0.0, 100.0))
      ->option_text("PERCENT");
  app.add_option("--clock-limit", clockLimit_, "that a clock may be wrong by; else 2m")
      ->option_text("TIME");
  app.add_option("--situations", options_.situationHours,
                 "hours that situations may last, and that working time may lack; else 24")
      ->check(WholeNumber(1, 100000))
      ->option_text("HOURS");
}

void CheckCommand::Finish() {
  chosen_.Finish();
  if (clockLimit_.empty()) return;
  options_.clockLimit = RequireDuration("--clock-limit", clockLimit_);
}

int CheckCommand::Run() {
  if (listRules_) {
    WriteStandardOutput(RulesText(AllRules()));
    return kSuccess;
  }
  const std::unique_ptr<Database> database = OpenStore(of_.db.value_or(""));
  std::vector<Finding> findings;
  database->Read([&] { findings = Check(*database, of_.selection, options_, rules_); });
  WriteStandardOutput(json_ ? FindingsJson(findings) : FindingsText(findings));
  const bool wrong = std::any_of(findings.begin(), findings.end(),
                                 [](const Finding& finding) { return !finding.note; });
  return wrong ? kFindings : kSuccess;
}

}  // namespace

std::unique_ptr<Command> MakeCheckCommand() { return std::make_unique<CheckCommand>(); }

}  // namespace host
