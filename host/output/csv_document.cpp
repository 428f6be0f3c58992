#include "host/output/csv_document.h"

#include "host/output/text.h"

namespace host {

std::string CsvDocument::Comment(const std::string& text) const {
  return text.empty() ? std::string() : "# " + text + dialect_.lineEnd;
}

std::string CsvDocument::TextOf(const GatheredSection& gathered) const {
  const Section& section = gathered.section;
  std::string text = Comment(SectionHeading(section));
  text += "# ";
  AppendDriverHeader(text, section, dialect_);
  AppendCsvHeader(text, section, gathered.fields, dialect_);
  for (const GatheredRow& row : gathered.rows) {
    AppendCsvRow(text, section, row.clock, row.cells, dialect_);
  }
  if (gathered.account) {
    for (const std::string& line : AccountLines(*gathered.account)) text += Comment(line);
  }
  return text;
}

void CsvDocument::Show(const GatheredRun& run) {
  if (run.sections.empty() && run.neverCame.empty()) return;
  std::string text = dialect_.begin;
  text += Comment(std::string("times: ") + kTimes);
  text += Comment(ClockWarning(run.end));
  for (const GatheredSection& gathered : run.sections) {
    text += dialect_.lineEnd + TextOf(gathered);
  }
  if (!run.neverCame.empty()) text += dialect_.lineEnd;
  for (const SectionAccount& account : run.neverCame) {
    for (const std::string& line : AccountLines(account)) {
      text += Comment(SectionName(account.kind, account.section) + ": " + line);
    }
  }
  screen_.PrintResult(text);
}

}  // namespace host
