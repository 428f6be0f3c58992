#include "host/output/csv_folder.h"

#include <fmt/format.h>

#include <utility>

#include "host/output/csv.h"
#include "host/stream/cell.h"
#include "host/stream/code_page.h"
#include "host/system/files.h"

namespace host {
namespace {

constexpr const char* kIndex = "index.csv";

std::string FileName(std::size_t number, const Section& section) {
  const std::string slug = AsciiSlug(section.title.section);
  return fmt::format("{:02}-{}{}{}.csv", number, KindName(section.title.kind),
                     slug.empty() ? "" : "-", slug);
}

}  // namespace

CsvFolder::CsvFolder(std::filesystem::path folder) : folder_(std::move(folder)) {
  std::error_code error;
  std::filesystem::create_directories(folder_, error);
  Open(kIndex, false);
  Put("file,kind,section,model,version,number,clock\n");
}

void CsvFolder::Open(const std::string& name, bool append) {
  if (file_.is_open()) file_.close();
  path_ = folder_ / name;
  file_.clear();
  file_.open(path_, append ? std::ios::binary | std::ios::app : std::ios::binary | std::ios::trunc);
  if (!file_) throw FileError("write", path_);
}

void CsvFolder::Put(const std::string& text) {
  file_ << text << std::flush;
  if (!file_) throw FileError("write", path_);
}

void CsvFolder::AddToIndex(const std::string& name, const Section& section) {
  const Title& title = section.title;
  std::string line = name;
  for (const std::string& text : {std::string(KindName(title.kind)), title.section, title.model,
                                  title.version, title.number, DateText(title.time)}) {
    line += ',';
    AppendCsvField(line, text);
  }
  Open(kIndex, true);
  Put(line + '\n');
}

void CsvFolder::Begin(const Section& section) {
  std::string heading;
  AppendCsvHeader(heading, section);
  const std::string key = section.title.kind + section.title.section + '\n' + heading;
  const auto [place, isNew] = names_.try_emplace(key, FileName(names_.size() + 1, section));
  if (isNew) AddToIndex(place->second, section);
  Open(place->second, !isNew);
  if (isNew) Put(heading);
}

void CsvFolder::AddRow(const Section& section, ByteView row) {
  std::string line;
  AppendCsvRow(line, section, row);
  Put(line);
}

void CsvFolder::End(const Section&) { file_.close(); }

}  // namespace host
