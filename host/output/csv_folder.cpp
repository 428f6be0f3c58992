#include "host/output/csv_folder.h"

#include <fmt/format.h>

#include <utility>

#include "host/output/csv_index.h"
#include "host/output/reading_folder.h"
#include "host/stream/code_page.h"

namespace host {
namespace {

// A process may not hold any number of files open.
constexpr std::size_t kMostUnwritten = 50;
// File systems take 255 bytes; the number before it keeps names apart.
constexpr std::size_t kLongestSlug = 60;

std::string FileName(std::size_t number, const Section& section) {
  const std::string slug = AsciiSlug(section.title.section).substr(0, kLongestSlug);
  return fmt::format("{:02}-{}{}{}.csv", number, KindName(section.title.kind),
                     slug.empty() ? "" : "-", slug);
}

}  // namespace

CsvFolder::CsvFolder(std::filesystem::path folder, const UnitChoice& units,
                     const CsvDialect& dialect)
    : folder_(std::move(folder)), dialect_(dialect), view_(units) {
  std::error_code error;
  std::filesystem::create_directories(folder_, error);
  index_ = Begin(kIndexName, IndexHeading(dialect_));
  columns_ = Begin(kColumnsName, ColumnsHeading(dialect_));
}

std::unique_ptr<OutputFile> CsvFolder::Begin(const std::string& name,
                                             const std::string& text) const {
  auto file = std::make_unique<OutputFile>(folder_ / name);
  file->Append(text);
  file->Close();
  return file;
}

std::string CsvFolder::Heading(const Section& section, const std::vector<Field>& fields) const {
  std::string heading = dialect_.begin;
  AppendCsvHeader(heading, section, fields, dialect_);
  return heading;
}

// The index first: a program that is ended here leaves no file that it does not name.
CsvFolder::SectionFile& CsvFolder::AddFile(const Section& section) {
  SectionFile added{FileName(files_.size() + 1, section), view_.Columns(section), nullptr};
  const std::vector<Field>& fields = added.columns.fields;
  index_->Append(IndexLine(added.name, section.title, nullptr, nullptr, dialect_));
  index_->Close();
  columns_->Append(ColumnsLines(added.name, section, fields, dialect_));
  columns_->Close();
  added.file = Begin(added.name, Heading(section, fields));
  return files_[GatheringKey(section)] = std::move(added);
}

void CsvFolder::BeginSection(const Section& section) {
  if (unwritten_.size() > kMostUnwritten) Keep();
  view_.See(section);
  const auto known = files_.find(GatheringKey(section));
  open_ = known == files_.end() ? &AddFile(section) : &known->second;
}

void CsvFolder::AddRow(const Section& section, const Cells& cells) {
  view_.See(section, cells);
  OutputFile& file = *open_->file;
  if (!file.HasPending()) unwritten_.push_back(&file);
  line_.clear();
  AppendCsvRow(line_, section, section.title.time, open_->columns.In(cells, scratch_), dialect_);
  file.Append(line_);
}

void CsvFolder::Keep() {
  while (!unwritten_.empty()) {
    OutputFile* file = unwritten_.back();
    unwritten_.pop_back();
    file->Close();
  }
}

void CsvFolder::EndRun(const RunEnd&) { Keep(); }

std::string CsvFolder::FileText(const GatheredSection& gathered) const {
  std::string text = Heading(gathered.section, gathered.fields);
  for (const GatheredRow& row : gathered.rows) {
    AppendCsvRow(text, gathered.section, row.clock, row.cells, dialect_);
  }
  return text;
}

void CsvFolder::Show(const GatheredRun& run) {
  std::string index = IndexHeading(dialect_);
  std::string columns = ColumnsHeading(dialect_);
  for (const GatheredSection& gathered : run.sections) {
    const std::string& name = files_.at(GatheringKey(gathered.section)).name;
    const SectionAccount* account = gathered.account ? &*gathered.account : nullptr;
    RewriteFile(folder_ / name, FileText(gathered));
    index += IndexLine(name, gathered.section.title, account, &run.end, dialect_);
    columns += ColumnsLines(name, gathered.section, gathered.fields, dialect_);
  }
  for (const SectionAccount& account : run.neverCame) {
    const Title title{account.kind, {}, {}, {}, account.section, {}};
    index += IndexLine("", title, &account, &run.end, dialect_);
  }
  RewriteFile(folder_ / kColumnsName, columns);
  RewriteFile(folder_ / kIndexName, index);
}

}  // namespace host
