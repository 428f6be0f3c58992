#include "host/output/csv_document.h"

#include "host/output/csv.h"
#include "host/output/text.h"

namespace host {

void CsvDocument::BeginSection(const Section& section) {
  if (!text_.empty()) text_ += '\n';
  text_ += "# " + SectionHeading(section) + '\n';
  AppendCsvHeader(text_, section);
}

void CsvDocument::AddRow(const Section& section, const Cells& cells) {
  AppendCsvRow(text_, section, cells);
}

void CsvDocument::EndRun(const RunEnd&) { screen_.PrintResult(text_); }

}  // namespace host
