#include "simulator/older/text_memory.h"

#include <fmt/format.h>

#include <string_view>
#include <utility>

#include "simulator/older/encoding.h"
#include "simulator/older/values.h"

namespace simulator::older {
namespace {

constexpr unsigned kCurrentAddress = 0x0200;
constexpr unsigned kTotalsAddress = 0x0280;
constexpr unsigned kPerSystem = 0x0100;  // further on for heat system 2

constexpr unsigned kChangesAddress = 0x1000;
constexpr unsigned kSituationsAddress = 0x2000;
constexpr unsigned kLogsPerSystem = 0x2000;
constexpr std::size_t kLogEntries = 100;
constexpr std::size_t kChangeSize = 32;
constexpr std::size_t kSituationSize = 24;
constexpr std::size_t kLogTimeSize = 17;

constexpr std::size_t kArchiveSize = 64;
constexpr std::size_t kRowSize = 16;
constexpr std::size_t kTextInRow = 4;  // offset of a text in its row

void RoundUpToPages(Bytes& bytes) {
  bytes.resize((bytes.size() + kPageSize - 1) / kPageSize * kPageSize);
}

Bytes RecordOf(Columns columns, const Row& row) {
  Bytes bytes;
  for (const std::string_view column : columns) {
    if (column == "SP") {
      PutInteger(bytes, static_cast<std::uint32_t>(row.Mode()), 1);
    } else if (column == "NS") {
      PutInteger(bytes, row.Situation(), 4);
    } else {
      PutFloat(bytes, row.Value(column));
    }
  }
  return bytes;
}

std::string TimeText(const ClockTime& time) {
  return fmt::format("{:02}.{:02}.{:02}/{:02}:{:02}:{:02}", time.day, time.month, time.year % 100,
                     time.hour, time.minute, time.second);
}

// Entries that were never written are erased flash in one log and zeros in the other: a host meets
// both kinds of end.
Bytes ChangeLog(const std::vector<LogEntry>& entries) {
  Bytes bytes;
  for (const LogEntry& entry : entries) {
    PutText(bytes, TimeText(entry.time), kLogTimeSize, ' ');
    PutText(bytes, entry.change, kChangeSize - kLogTimeSize, ' ');
  }
  bytes.resize(kLogEntries * kChangeSize, 0xFF);
  return bytes;
}

Bytes SituationLog(const std::vector<LogEntry>& entries) {
  Bytes bytes;
  for (const LogEntry& entry : entries) {
    PutText(bytes, TimeText(entry.time), kLogTimeSize, ' ');
    bytes.insert(bytes.end(), {entry.situation, entry.flag, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF});
  }
  bytes.resize(kLogEntries * kSituationSize);
  return bytes;
}

class TextMemory : public Memory {
 public:
  TextMemory(const Model& model, const Values& values) : model_(model), values_(values) {}

  std::optional<Bytes> Read(unsigned address, std::size_t count, Moment now) const override {
    for (int system = 1; system <= model_.systems; ++system) {
      const unsigned offset = kPerSystem * static_cast<unsigned>(system - 1);
      Bytes bytes;
      if (address == kCurrentAddress + offset) {
        bytes = RecordOf(model_.current, values_.CurrentRow(system, now));
      } else if (address == kTotalsAddress + offset) {
        bytes = RecordOf(model_.totals, values_.TotalsRow(system, now));
      }
      if (!bytes.empty() && bytes.size() == count) return bytes;
    }
    return std::nullopt;
  }

  std::optional<Bytes> Flash(unsigned page, std::size_t count, Moment now) const override {
    for (const Block& block : model_.blocks) {
      if (auto pages = Cut(block.address, BlockBytes(block), page, count)) return pages;
    }
    for (int system = 1; model_.logs && system <= model_.systems; ++system) {
      const unsigned offset = kLogsPerSystem * static_cast<unsigned>(system - 1);
      const std::vector<LogEntry> entries = values_.Log(system, now);
      if (auto pages = Cut(kChangesAddress + offset, ChangeLog(entries), page, count)) return pages;
      if (auto pages = Cut(kSituationsAddress + offset, SituationLog(entries), page, count)) {
        return pages;
      }
    }
    return std::nullopt;
  }

  Bytes Record(Archive kind, int system, Moment stamp) const override {
    const Row row = values_.ArchiveRow(kind, system, stamp);
    Bytes bytes;
    PutInteger(bytes, model_.modeInArchive ? static_cast<std::uint32_t>(row.Mode()) : 0xFF, 1);
    PutInteger(bytes, row.Situation(), 3);
    const Bytes floats = RecordOf(model_.archive, row);
    bytes.insert(bytes.end(), floats.begin(), floats.end());
    bytes.resize(kArchiveSize, 0xFF);
    return bytes;
  }

 private:
  // Pages of flash that starts at an address, if all of them lie in it.
  static std::optional<Bytes> Cut(unsigned address, Bytes bytes, unsigned page, std::size_t count) {
    RoundUpToPages(bytes);
    const std::size_t first = address / kPageSize;
    const std::size_t end = first + bytes.size() / kPageSize;
    if (page < first || page + count > end) return std::nullopt;
    const auto begin = bytes.begin() + static_cast<std::ptrdiff_t>((page - first) * kPageSize);
    return Bytes(begin, begin + static_cast<std::ptrdiff_t>(count * kPageSize));
  }

  Bytes BlockBytes(const Block& block) const {
    Bytes bytes;
    for (const Parameter& parameter : block.parameters) {
      // Instruments pad with blanks or with zeros.
      const char padding = parameter.width > 8 || bytes.size() % 3 == 0 ? '\0' : ' ';
      if (block.inRows) bytes.insert(bytes.end(), kTextInRow, 0xFF);
      PutText(bytes, values_.ParameterText(block.system, parameter), parameter.width, padding);
      if (block.inRows) bytes.insert(bytes.end(), kRowSize - kTextInRow - parameter.width, 0xFF);
    }
    return bytes;
  }

  const Model& model_;
  const Values& values_;
};

}  // namespace

std::unique_ptr<Memory> MakeTextMemory(const Model& model, const Values& values) {
  return std::make_unique<TextMemory>(model, values);
}

}  // namespace simulator::older
