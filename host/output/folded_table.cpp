#include "host/output/folded_table.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/output/text.h"

namespace host {
namespace {

constexpr const char* kGap = "  ";
constexpr std::size_t kGapWidth = 2;

using Widths = std::vector<std::size_t>;

void Widen(Widths& widths, const std::vector<TextLine>& lines) {
  for (const TextLine& line : lines) {
    widths.resize(std::max(widths.size(), line.size()));
    for (std::size_t i = 0; i < line.size(); ++i) {
      widths[i] = std::max(widths[i], DisplayWidth(line[i]));
    }
  }
}

// Columns from begin to end.
struct Block {
  std::size_t begin;
  std::size_t end;
};

class Folder {
 public:
  explicit Folder(const FoldedTable& table)
      : table_(table), described_(table.headings.front().size()) {
    Widen(widths_, table.headings);
    Widen(widths_, table.rows);
    key_ = table.keyed && !widths_.empty() ? 1 : 0;
  }

  std::string Text() const {
    std::string text;
    for (const Block& block : Blocks()) {
      if (!text.empty()) text += '\n';
      text += TextOfBlock(block);
    }
    return text;
  }

 private:
  std::vector<Block> Blocks() const {
    std::vector<Block> blocks;
    const std::size_t key = key_ == 1 ? kGapWidth + widths_[0] : 0;
    std::size_t used = 0;
    for (std::size_t i = key_; i < widths_.size(); ++i) {
      const std::size_t needed = kGapWidth + widths_[i];
      if (blocks.empty() || used + needed > table_.width) {
        blocks.push_back({i, i});
        used = key;
      }
      used += needed;
      blocks.back().end = i + 1;
    }
    if (blocks.empty()) blocks.push_back({key_, key_});
    return blocks;
  }

  bool HasAny(const TextLine& line, const Block& block) const {
    const std::size_t end = std::min(block.end, line.size());
    for (std::size_t i = block.begin; i < end; ++i) {
      if (!line[i].empty()) return true;
    }
    return block.begin == key_ && !line.empty();
  }

  void AppendText(std::string& text, const TextLine& line, std::size_t i, bool last) const {
    text += kGap;
    if (i >= 1 && i < described_) {
      text += PadLeft(line[i], widths_[i]);
    } else {
      // The widest text of all rows does not lengthen what ends each of them.
      text += PadRight(line[i], last ? 0 : widths_[i]);
    }
  }

  void AppendLine(std::string& text, const TextLine& line, const Block& block) const {
    if (!HasAny(line, block)) return;
    const std::size_t end = std::min(block.end, line.size());
    if (key_ == 1) AppendText(text, line, 0, end <= block.begin);
    for (std::size_t i = block.begin; i < end; ++i) AppendText(text, line, i, i + 1 == end);
    text.erase(text.find_last_not_of(' ') + 1);
    text += '\n';
  }

  void AppendHeadings(std::string& text, const Block& block) const {
    for (const TextLine& line : table_.headings) {
      const bool empty = std::all_of(line.begin(), line.end(),
                                     [](const std::string& each) { return each.empty(); });
      if (!empty) AppendLine(text, line, block);
    }
  }

  void AppendLeftOut(std::string& text, std::size_t row) const {
    if (table_.leftOut == 0 || row != table_.leftOutAt) return;
    text += fmt::format("{}... {} more ...\n", kGap, table_.leftOut);
  }

  std::string TextOfBlock(const Block& block) const {
    std::string text;
    AppendHeadings(text, block);
    for (std::size_t i = 0; i < table_.rows.size(); ++i) {
      AppendLeftOut(text, i);
      AppendLine(text, table_.rows[i], block);
    }
    AppendLeftOut(text, table_.rows.size());
    return text;
  }

  const FoldedTable& table_;
  std::size_t described_;
  std::size_t key_ = 0;  // columns that stand in each block
  Widths widths_;
};

}  // namespace

std::string TextOf(const FoldedTable& table) { return Folder(table).Text(); }

std::string ListText(const std::vector<TextLine>& lines, const char* indent) {
  Widths widths;
  Widen(widths, lines);
  std::string text;
  for (const TextLine& line : lines) {
    text += indent;
    for (std::size_t i = 0; i < line.size(); ++i) {
      if (i > 0) text += kGap;
      text += PadRight(line[i], i + 1 < line.size() ? widths[i] : 0);
    }
    text.erase(text.find_last_not_of(' ') + 1);
    text += '\n';
  }
  return text;
}

}  // namespace host
