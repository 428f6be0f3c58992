#include "host/output/csv_folder.h"

#include <fmt/format.h>

#include <utility>

#include "host/output/csv.h"
#include "host/stream/code_page.h"

namespace host {
namespace {

// A process may not hold any number of files open.
constexpr std::size_t kMostUnwritten = 50;

std::string FileName(std::size_t number, const Section& section) {
  const std::string slug = AsciiSlug(section.title.section);
  return fmt::format("{:02}-{}{}{}.csv", number, KindName(section.title.kind),
                     slug.empty() ? "" : "-", slug);
}

std::string IndexLine(const std::string& file, const Section& section) {
  const Title& title = section.title;
  std::string line = file;
  for (const std::string& text : {std::string(KindName(title.kind)), title.section, title.model,
                                  title.version, title.number, DateText(title.time)}) {
    line += ',';
    AppendCsvField(line, text);
  }
  return line + '\n';
}

}  // namespace

CsvFolder::CsvFolder(std::filesystem::path folder) : folder_(std::move(folder)) {
  std::error_code error;
  std::filesystem::create_directories(folder_, error);
  index_ = Begin("index.csv", "file,kind,section,model,version,number,clock\n");
}

CsvFolder::File CsvFolder::Begin(const std::string& name, const std::string& heading) const {
  auto file = std::make_unique<OutputFile>(folder_ / name);
  file->Append(heading);
  file->Close();
  return file;
}

OutputFile& CsvFolder::AddFile(const Section& section, const std::string& heading) {
  const std::string name = FileName(files_.size() + 1, section);
  index_->Append(IndexLine(name, section));
  unwritten_.push_back(index_.get());
  File& file = files_[SectionKey(section) + heading];
  file = Begin(name, heading);
  return *file;
}

void CsvFolder::BeginSection(const Section& section) {
  if (unwritten_.size() > kMostUnwritten) Keep();
  std::string heading;
  AppendCsvHeader(heading, section);
  const auto known = files_.find(SectionKey(section) + heading);
  file_ = known == files_.end() ? &AddFile(section, heading) : known->second.get();
}

void CsvFolder::AddRow(const Section& section, const Cells& cells) {
  if (!file_->HasPending()) unwritten_.push_back(file_);
  line_.clear();
  AppendCsvRow(line_, section, cells);
  file_->Append(line_);
}

void CsvFolder::Keep() {
  while (!unwritten_.empty()) {
    OutputFile* file = unwritten_.back();
    unwritten_.pop_back();
    file->Close();
  }
}

void CsvFolder::EndRun(const RunEnd&) { Keep(); }

}  // namespace host
