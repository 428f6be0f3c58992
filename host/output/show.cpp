#include "host/output/show.h"

#include "host/output/csv.h"
#include "host/output/json.h"
#include "host/output/table.h"

namespace host {
namespace {

std::string CsvOf(const KeptSection& kept) {
  std::string text = "# " + SectionHeading(kept.section) + '\n';
  AppendCsvHeader(text, kept.section);
  for (const Bytes& row : kept.rows) AppendCsvRow(text, kept.section, row);
  return text;
}

std::string JsonOf(const std::vector<KeptSection>& sections, const ShowSettings& settings) {
  nlohmann::ordered_json document;
  if (!settings.ending.empty()) document["result"] = settings.ending;
  if (!settings.reason.empty()) document["reason"] = settings.reason;
  document.update(DocumentJson(sections));
  // A device's error text may be in the system's own code page.
  return document.dump(1, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + '\n';
}

}  // namespace

std::string ShowSections(const std::vector<KeptSection>& sections, const ShowSettings& settings) {
  if (settings.format == Format::kJson) return JsonOf(sections, settings);
  std::string text;
  for (const KeptSection& kept : sections) {
    if (!text.empty()) text += '\n';
    text += settings.format == Format::kCsv ? CsvOf(kept) : FormatTable(kept, settings.maxRows);
  }
  return text;
}

}  // namespace host
