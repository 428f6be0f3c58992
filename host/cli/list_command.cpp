#include "host/cli/commands.h"
#include "host/output/kept_list.h"
#include "host/system/exit_codes.h"
#include "host/system/files.h"

namespace host {

int ListStore(const ListOptions& options) {
  const std::vector<KeptSection> sections = ListKept(options.db.value_or(""));
  WriteStandardOutput(options.json ? KeptJson(sections) : KeptText(sections));
  return kSuccess;
}

}  // namespace host
