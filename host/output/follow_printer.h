// Prints rows as they arrive: what continuous reading shows.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "host/output/format.h"
#include "host/stream/section.h"

namespace host {

// A row that says the same as the one before it, clock included, is not shown again: an instrument
// may be read twice within a second.
//
// table and csv: a heading whenever another section comes, then a line per row. json: an object per
// line, with its section under "kind" and "section".
class FollowPrinter final : public SectionListener {
 public:
  using Print = std::function<void(const std::string& text)>;

  FollowPrinter(Format format, Print print) : format_(format), print_(std::move(print)) {}
  void Begin(const Section& section) override;
  void AddRow(const Section& section, ByteView row) override;
  void End(const Section&) override {}

 private:
  Format format_;
  Print print_;
  std::string LineOf(const Section& section, ByteView row) const;

  std::string lastHeading_;
  std::string lastLine_;
};

}  // namespace host
