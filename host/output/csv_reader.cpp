#include "host/output/csv_reader.h"

#include <algorithm>
#include <fstream>
#include <string_view>

#include "host/system/files.h"

namespace host {
namespace {

// Far more than a year of a section has.
constexpr std::uintmax_t kMostBytes = 512U << 20U;

std::string TextOf(const std::filesystem::path& path) {
  std::error_code error;
  const auto size = std::filesystem::file_size(path, error);
  if (error) throw FileError("read", path, error);
  if (size > kMostBytes) throw std::runtime_error(PathText(path) + " is too large");
  std::ifstream file(path, std::ios::binary);
  if (!file) throw FileError("read", path);
  std::string text(static_cast<std::size_t>(size), '\0');
  file.read(text.data(), static_cast<std::streamsize>(size));
  if (file.gcount() != static_cast<std::streamsize>(size)) throw FileError("read", path);
  return text;
}

// Takes a text apart, a field at a time.
class Scanner {
 public:
  Scanner(std::string_view text, char separator) : rest_(text), separator_(separator) {}

  bool AtEnd() const { return rest_.empty(); }
  CsvLine Line() {
    CsvLine line = {Field()};
    while (Skip(separator_)) line.push_back(Field());
    Skip('\r');
    Skip('\n');
    return line;
  }

 private:
  bool Skip(char character) {
    if (rest_.empty() || rest_.front() != character) return false;
    rest_.remove_prefix(1);
    return true;
  }
  std::string Field() {
    if (Skip('"')) return Quoted();
    const char ends[] = {separator_, '\r', '\n', '\0'};
    const std::size_t end = std::min(rest_.find_first_of(ends), rest_.size());
    std::string field(rest_.substr(0, end));
    rest_.remove_prefix(end);
    return field;
  }
  // What stands behind the closing quote up to the separator belongs to the field too.
  std::string Quoted() {
    std::string field;
    while (!rest_.empty()) {
      const std::size_t end = std::min(rest_.find('"'), rest_.size());
      field += rest_.substr(0, end);
      rest_.remove_prefix(end);
      Skip('"');
      if (!Skip('"')) break;
      field += '"';
    }
    return rest_.empty() || rest_.front() == separator_ || rest_.front() == '\r' ||
                   rest_.front() == '\n'
               ? field
               : field + Field();
  }

  std::string_view rest_;
  char separator_;
};

}  // namespace

CsvTable::CsvTable(const std::filesystem::path& path) {
  const std::string text = TextOf(path);
  std::string_view rest = text;
  const std::string_view mark = kExcelRuCsv.begin;
  if (rest.starts_with(mark)) rest.remove_prefix(mark.size());
  const std::string_view first = rest.substr(0, rest.find('\n'));
  if (first.find(kExcelRuCsv.separator) != std::string_view::npos) dialect_ = kExcelRuCsv;
  Scanner scanner(rest, dialect_.separator);
  if (scanner.AtEnd()) throw std::runtime_error(PathText(path) + " is empty");
  heading_ = scanner.Line();
  while (!scanner.AtEnd()) lines_.push_back(scanner.Line());
}

std::string CsvTable::Field(const CsvLine& line, const std::string& column) const {
  const auto found = std::find(heading_.begin(), heading_.end(), column);
  const auto place = static_cast<std::size_t>(found - heading_.begin());
  return place < line.size() ? line[place] : "";
}

}  // namespace host
