#include "host/reading/assembler.h"

#include <utility>

namespace host {

Assembler::Assembler(RunListener& sinks, const ReadSettings& asked, KnownRecords* known)
    : WrappedListener(sinks), asked_(asked), known_(known), ledger_(asked), labels_(asked.kind) {}

void Assembler::Plan(KnownInstrument instrument) {
  expected_ = std::move(instrument);
  ledger_ = Ledger(asked_, expected_);
  meetsAnother_ = false;
  anyRun_ = false;
  number_.clear();
}

// Where nobody was expected and nothing is known of the one that answers, all goes on as planned.
void Assembler::Meet(const Title& title) {
  const bool same =
      title.model == expected_.model && (title.number.empty() || title.number == expected_.serial);
  if (known_ == nullptr || same) return;
  other_ = known_->Of(title);
  meetsAnother_ = !expected_.model.empty() || !other_.archives.empty();
  if (!meetsAnother_) expected_ = other_;
}

void Assembler::BeginDriverRun(const ReadSettings& settings) {
  repeated_ = std::exchange(anyRun_, true);
  ledger_.Begin(settings);
}

// Parameters that were not asked for are read for their units, and continuous reading brings
// values, hours and days whatever was asked for.
bool Assembler::IsWanted(const Section& section) const {
  const auto asked = [this](tav::ReadGroup group) {
    return asked_.groups.find(static_cast<char>(group)) != std::string::npos;
  };
  switch (section.title.kind) {
    case tav::TitleKind::kDatabase:
      return asked(tav::ReadGroup::kDatabase);
    case tav::TitleKind::kCurrent:
      return !asked_.follow || asked(tav::ReadGroup::kCurrent);
    case tav::TitleKind::kHourly:
      return !asked_.follow || asked(tav::ReadGroup::kHours);
    case tav::TitleKind::kDaily:
      return !asked_.follow || asked(tav::ReadGroup::kDays);
    default:
      return true;
  }
}

// A section that was asked for again is told when it brings a row.
void Assembler::BeginSection(const Section& section) {
  Meet(section.title);
  if (meetsAnother_) return;
  units_.See(section);
  section_ = section;
  labels_.Correct(section_.title);
  // A part of an instrument is read on where the number could not be.
  if (section_.title.number.empty()) section_.title.number = number_;
  number_ = section_.title.number;
  begun_ = false;
  if (!repeated_ && IsWanted(section_)) BeginOnce();
}

void Assembler::BeginOnce() {
  if (std::exchange(begun_, true)) return;
  if (names_.insert(SectionKey(section_)).second) ++counts_.sections;
  Wrapped().BeginSection(section_);
}

void Assembler::AddRow(const Section& section, const Cells& cells) {
  if (meetsAnother_) return;
  units_.See(section, cells);
  if (!IsWanted(section_)) return;
  cells_ = cells;
  if (!asked_.follow && !ledger_.Take(section_, cells_)) return;
  BeginOnce();
  ++counts_.rows;
  Wrapped().AddRow(section_, cells_);
}

void Assembler::EndSection(const Section&) {
  if (std::exchange(begun_, false)) Wrapped().EndSection(section_);
}

void Assembler::Tell(const Message& message) {
  if (!meetsAnother_) ledger_.Tell(message);
  labels_.Tell(message);
  Wrapped().Tell(message);
}

}  // namespace host
