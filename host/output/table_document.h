// Sections for people, shown at the end of a run: one row of many values as a list, several rows as
// an aligned table.
#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <vector>

#include "host/output/screen.h"
#include "host/reading/run_listener.h"

namespace host {

class TableDocument final : public RunListener {
 public:
  // At most maxRows rows of a section, the first and the last ones, with the number of those left
  // out; 0 means all. screen must outlive it.
  TableDocument(std::size_t maxRows, Screen& screen);
  void BeginSection(const Section& section) override;
  void AddRow(const Section& section, const Cells& cells) override;
  void EndSection(const Section& section) override;
  void EndRun(const RunEnd& end) override;

 private:
  using Fields = std::vector<std::string>;

  std::string Text(const Section& section) const;
  std::string List(const Section& section) const;
  std::string Table(const Section& section) const;

  std::size_t mostHead_;
  std::size_t mostTail_;
  Screen& screen_;
  std::string text_;
  // The open section: its rows as texts.
  std::size_t count_ = 0;
  std::vector<Fields> head_;
  std::deque<Fields> tail_;
};

}  // namespace host
