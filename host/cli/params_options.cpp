#include "host/cli/params_options.h"

#include "host/cli/checks.h"
#include "host/cli/dates.h"

namespace host {

void ParamsParser::AddTo(CLI::App& app) {
  selection_.AddTo(app);
  app.remove_option(app.get_option("--groups"));
  CLI::Option* at = app.add_option("--at", at_, "as the parameters were then, else as known last")
                        ->option_text("DATE");
  app.add_flag("--history", options_.history, "all that changed; with --from, --to what did then");
  for (const char* other : {"--from", "--to", "--history"}) at->excludes(app.get_option(other));
  app.add_option_function<std::string>(
         "--format", [this](const std::string& name) { options_.json = name == "json"; },
         "table or json")
      ->transform(OneOf({"table", "json"}))
      ->option_text("NAME")
      ->default_str("table");
  app.footer(
      "Examples:\n"
      "  irvela params --serial 12822465\n"
      "  irvela params --db archive.db --from 2016-09-01 --to 2016-09-30\n"
      "Dates are those of the instrument's clock.");
}

void ParamsParser::Finish() {
  selection_.Finish();
  if (!at_.empty()) options_.at = RequireDate("--at", at_, Bound::kTo);
  const Selection& selection = options_.store.selection;
  if (selection.from || selection.to) options_.history = true;
}

}  // namespace host
