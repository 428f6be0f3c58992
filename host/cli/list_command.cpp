#include <CLI/CLI.hpp>

#include "host/cli/checks.h"
#include "host/cli/commands.h"
#include "host/cli/sink_options.h"
#include "host/output/kept_list.h"
#include "host/system/exit_codes.h"
#include "host/system/files.h"

namespace host {
namespace {

class ListCommand final : public Command {
 public:
  void AddTo(CLI::App& app) override {
    AddStoreOption(app, db_);
    AddJsonOption(app, json_);
    app.footer(
        "Examples:\n"
        "  irvela list\n"
        "  irvela list --db archive.db --format json");
  }
  int Run() override {
    const std::vector<KeptSection> sections = ListKept(db_.value_or(""));
    WriteStandardOutput(json_ ? KeptJson(sections) : KeptText(sections));
    return kSuccess;
  }

 private:
  std::optional<std::string> db_;
  bool json_ = false;
};

}  // namespace

std::unique_ptr<Command> MakeListCommand() { return std::make_unique<ListCommand>(); }

}  // namespace host
