#include "host/output/raw_file_sink.h"

#include "host/reading/settings.h"
#include "host/system/files.h"

namespace host {
namespace {

namespace fs = std::filesystem;

// With or without a slash at its end.
fs::path Whole(const std::string& name) {
  return (fs::absolute(PathOf(name)) / "").lexically_normal();
}

// Empty when the stream may be kept there.
std::string Objection(const std::string& name, const std::string& out, bool force) {
  if (name == "-") return "this needs a file, with a name of its own";
  if (!out.empty() && Whole(name) == Whole(out)) return "--out has the same name";
  std::error_code ignored;
  const fs::file_status status = fs::status(PathOf(name), ignored);
  if (!fs::exists(status)) return {};
  if (!fs::is_regular_file(status)) return "this needs a regular file";
  return force ? "" : "the file exists; name another one, or write over it with --force";
}

}  // namespace

void CheckNewFile(const std::string& option, const std::string& name, const std::string& out,
                  bool force) {
  const std::string objection = Objection(name, out, force);
  if (!objection.empty()) throw UsageError(option + ' ' + name + ": " + objection);
}

}  // namespace host
