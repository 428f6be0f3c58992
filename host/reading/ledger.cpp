#include "host/reading/ledger.h"

#include <algorithm>
#include <utility>

namespace host {
namespace {

using Kind = RecordEvent::Kind;
using tav::TitleKind;

constexpr int kNoSuchRecord = 23;
constexpr int kFirstRefusal = 20;
constexpr int kLastRefusal = 24;

constexpr const char* kNoSense = "the reply made no sense";
constexpr const char* kNoValues = "the reply held no values";
constexpr const char* kNoEntries = "replies came without what they should hold";

bool IsZero(const Cell& cell) {
  if (const auto* number = std::get_if<std::uint32_t>(&cell)) return *number == 0;
  if (const auto* single = std::get_if<float>(&cell)) return *single == 0;
  if (const auto* wide = std::get_if<double>(&cell)) return *wide == 0;
  return false;
}

bool IsEmptyText(const Cell& cell) {
  const auto* text = std::get_if<std::string>(&cell);
  return text != nullptr && text->empty();
}

bool IsNothing(const Cell& cell) { return std::holds_alternative<std::monostate>(cell); }

// A question brings five parameters or more; a reply without values leaves as many empty texts.
void TakeOutEmptyReplies(Cells& cells) {
  constexpr std::ptrdiff_t kFewest = 5;
  for (auto begin = cells.begin(); begin != cells.end();) {
    begin = std::find_if(begin, cells.end(), IsEmptyText);
    const auto end = std::find_if_not(begin, cells.end(), IsEmptyText);
    if (end - begin >= kFewest) std::fill(begin, end, Cell{});
    begin = end;
  }
}

}  // namespace

void Ledger::Begin(const ReadSettings& run) {
  run_ = run;
  section_ = nullptr;
  reason_.clear();
}

Ledger::Entry* Ledger::Find(TitleKind kind, std::string_view name) {
  const auto entry = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& known) {
    return known.planned.kind == kind && known.planned.name == name;
  });
  return entry == entries_.end() ? nullptr : &*entry;
}

void Ledger::Tell(const Message& message) {
  const RecordEvent event = EventOf(message);
  // That a record was asked for in vain has its reason in a message before, if there was one.
  const bool known = event.kind == Kind::kAskedInVain && !reason_.empty();
  if (IsError(message) && !known) reason_ = ReasonOf(message);
  if (const ModelPlan* plan = FindPlan(asked_.kind, message)) return Identify(*plan);
  if (plan_ == nullptr) return;
  switch (event.kind) {
    case Kind::kClock:
      return SetNow(*event.date);
    case Kind::kPart:
      return BeginPart(event.text);
    case Kind::kPartFailed:
      return FailPart(event.text);
    case Kind::kPartIdle:
      return Excuse(part_);
    case Kind::kSection:
      return BeginSection(event);
    case Kind::kSectionDone:
      return FinishSection();
    case Kind::kSectionLost:
      return LoseSection(reason_.empty() ? kNoSense : reason_);
    case Kind::kAttempt:
      return TellAttempt(event, message);
    default:
      return TellArchive(event);
  }
}

void Ledger::SetNow(const TAVDT& now) {
  if (!IsDate(now)) return;
  for (Entry& entry : entries_) {
    if (entry.archive) entry.archive->SetNow(now);
  }
}

// An instrument of one part calls it by another name here.
void Ledger::BeginPart(const std::string& name) {
  FinishSection();
  const auto& parts = plan_->parts;
  const bool known = std::find(parts.begin(), parts.end(), name) != parts.end();
  part_ = known ? name : parts.front();
}

void Ledger::BeginSection(const RecordEvent& event) {
  FinishSection();
  reason_.clear();
  section_ = Find(event.titleKind, event.text.empty() ? part_ : event.text);
  if (section_ == nullptr) return;
  receivedBefore_ = section_->received;
  if (section_->archive) {
    section_->archive->Begin(RangeOf(run_, section_->archive->Of()).first);
  } else if (event.titleKind == TitleKind::kLog) {
    section_->received = true;  // unless an error tells another thing: it may have no entries
  }
}

void Ledger::FinishSection() {
  Entry* entry = std::exchange(section_, nullptr);
  if (entry == nullptr) return;
  if (entry->archive) {
    entry->archive->SettleAsked();
  } else if (!entry->received && !reason_.empty()) {
    entry->reason = reason_;
  }
}

void Ledger::LoseSection(const std::string& reason) {
  Entry* entry = std::exchange(section_, nullptr);
  if (entry == nullptr) return;
  if (entry->archive) {
    entry->archive->FailAsked(reason);
  } else {
    entry->received = receivedBefore_;
    entry->reason = reason;
  }
}

// What came of it before, as its parameters, stays.
void Ledger::Excuse(const std::string& part) {
  section_ = nullptr;
  for (Entry& entry : entries_) {
    if (entry.planned.part == part) entry.idle = true;
  }
}

void Ledger::FailPart(const std::string& part) {
  for (Entry& entry : entries_) {
    if (entry.planned.part == part && !entry.received) entry.reason = reason_;
  }
}

void Ledger::TellAttempt(const RecordEvent& event, const Message& message) {
  if (section_ == nullptr || event.number < run_.attempts) return;
  if (!section_->archive) return LoseSection(ReasonOf(message));
  ArchiveLedger& archive = *section_->archive;
  if (message.subject != "PoitkaArh") return;
  if (event.code == kNoSuchRecord) {
    archive.SetNextNotHeld();
  } else if (event.code >= kFirstRefusal && event.code <= kLastRefusal) {
    archive.RefuseNext(ReasonOf(message));
  } else {
    archive.FailNext(ReasonOf(message));
  }
}

void Ledger::TellArchive(const RecordEvent& event) {
  if (section_ == nullptr) return;
  if (!section_->archive) {
    if (event.kind == Kind::kAskedInVain) LoseSection(reason_);
    return;
  }
  if (event.kind == Kind::kNotHeld) section_->archive->SetNotHeld(*event.date);
  if (event.kind == Kind::kAsked) {
    reason_.clear();
    section_->archive->Ask(*event.date);
  }
  if (event.kind == Kind::kAskedInVain) section_->archive->FailAsked(reason_);
}

bool Ledger::Take(const Section& section, Cells& cells) {
  Entry* entry = Find(section.title.kind, section.title.section);
  if (entry == nullptr) return true;
  if (entry->archive) {
    const auto* date = cells.empty() ? nullptr : std::get_if<TAVDT>(&cells.front());
    return date != nullptr && entry->archive->Receive(*date);
  }
  switch (section.title.kind) {
    case TitleKind::kDatabase:
      return TakeParameters(*entry, cells);
    case TitleKind::kLog:
      return TakeEntry(*entry, cells);
    default:
      return TakeValues(*entry, cells);
  }
}

// K7 values of a reply that held none are all zero.
bool Ledger::TakeValues(Entry& entry, const Cells& cells) {
  if (IsK7() && std::all_of(cells.begin(), cells.end(), IsZero)) {
    reason_ = kNoValues;
    emptied_ = true;
    return false;
  }
  return !std::exchange(entry.received, true);
}

bool Ledger::TakeParameters(Entry& entry, Cells& cells) {
  if (entry.received) return false;
  if (IsK7()) TakeOutEmptyReplies(cells);
  const Cells& before = entry.parameters;
  for (std::size_t i = 0; i < std::min(cells.size(), before.size()); ++i) {
    if (IsNothing(cells[i])) cells[i] = before[i];
  }
  entry.parameters = cells;
  const auto missing = std::count_if(cells.begin(), cells.end(), IsNothing);
  entry.received = missing == 0;
  if (missing > 0) {
    emptied_ = true;
    entry.reason = std::to_string(missing) + " of " + std::to_string(cells.size()) +
                   " parameters did not come";
  }
  return true;
}

bool Ledger::TakeEntry(Entry& entry, const Cells& cells) {
  std::string text;
  for (const Cell& cell : cells) {
    AppendCell(text, cell);
    text += '\n';
  }
  return entry.entries.insert(std::move(text)).second;
}

bool Ledger::HasDoubt() const {
  return emptied_ || std::any_of(entries_.begin(), entries_.end(), [](const Entry& entry) {
           return entry.archive && entry.archive->HasDoubt();
         });
}

// Where replies come without what they should hold, a log without entries is not believed.
bool Ledger::IsMissing(const Entry& entry, bool doubt) const {
  if (entry.idle || entry.archive) return false;
  const bool unbelieved = doubt && entry.planned.kind == TitleKind::kLog && entry.entries.empty();
  return !entry.received || (IsK7() && unbelieved);
}

SectionAccount Ledger::AccountOf(const Entry& entry, bool doubt) const {
  SectionAccount account{.kind = entry.planned.kind, .section = entry.planned.name};
  if (entry.archive) {
    entry.archive->Tell(account);
    return account;
  }
  const bool log = entry.planned.kind == TitleKind::kLog;
  account.failed = IsMissing(entry, doubt) ? 1 : 0;
  account.received = log ? entry.entries.size() : 1 - account.failed;
  account.expected = account.received + account.failed;
  if (account.failed > 0) account.reason = entry.received ? kNoEntries : entry.reason;
  return account;
}

std::size_t Ledger::Missing() const {
  std::size_t missing = 0;
  for (const SectionAccount& account : Accounts()) missing += account.failed;
  return missing;
}

bool Ledger::HasUnasked() const {
  return std::any_of(entries_.begin(), entries_.end(), [](const Entry& entry) {
    return !entry.idle &&
           (entry.archive ? entry.archive->HasUnasked() : !entry.received && entry.reason.empty());
  });
}

std::vector<SectionAccount> Ledger::Accounts() const {
  std::vector<SectionAccount> accounts;
  const bool doubt = HasDoubt();
  for (const Entry& entry : entries_) {
    if (!entry.idle || entry.received) accounts.push_back(AccountOf(entry, doubt));
  }
  return accounts;
}

}  // namespace host
