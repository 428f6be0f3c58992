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
std::string Objection(const std::string& raw, const std::string& out, bool force) {
  if (raw == "-") return "the stream needs a file, with a name of its own";
  if (!out.empty() && Whole(raw) == Whole(out)) return "--out has the same name";
  std::error_code ignored;
  const fs::file_status status = fs::status(PathOf(raw), ignored);
  if (!fs::exists(status)) return {};
  if (!fs::is_regular_file(status)) return "the stream needs a regular file";
  return force ? "" : "the file exists; name another one, or write over it with --force";
}

}  // namespace

void CheckRawFile(const std::string& raw, const std::string& out, bool force) {
  const std::string objection = Objection(raw, out, force);
  if (!objection.empty()) throw UsageError("--raw " + raw + ": " + objection);
}

}  // namespace host
