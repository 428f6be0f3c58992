#include "host/output/gap_list.h"

#include <fmt/format.h>

#include <array>

#include "host/output/folded_table.h"
#include "host/output/json_writer.h"
#include "host/output/ranges.h"
#include "host/output/text.h"

namespace host {
namespace {

struct StateName {
  RecordState state;
  const char* word;
  const char* key;  // for programs
};

constexpr std::array kStates = {StateName{RecordState::kKept, "kept", "kept"},
                                StateName{RecordState::kMissing, "no answer", "missing"},
                                StateName{RecordState::kAbsent, "not held", "absent"},
                                StateName{RecordState::kUnasked, "not asked for", "unasked"}};

const StateName& NameOf(RecordState state) { return kStates[static_cast<std::size_t>(state)]; }

DateRange DatesOf(Period period, const PeriodRange& periods) {
  return {StartOf(period, periods.first), StartOf(period, periods.last)};
}

// Words behind a heading, on as many lines as they need.
class Wrapped {
 public:
  Wrapped(std::string heading, std::size_t width)
      : indent_(DisplayWidth(heading), ' '), width_(width), line_(std::move(heading)) {}

  void Add(const std::string& word) {
    if (!first_) line_ += ',';
    if (!first_ && DisplayWidth(line_) + 2 + DisplayWidth(word) > width_) {
      text_ += line_ + '\n';
      line_ = indent_;
    } else {
      line_ += ' ';
    }
    if (!first_ && line_ == indent_) line_ += ' ';
    line_ += word;
    first_ = false;
  }
  std::string Text() { return text_ + line_ + '\n'; }

 private:
  std::string indent_;
  std::size_t width_;
  std::string line_;
  std::string text_;
  bool first_ = true;
};

// The dates of one state; empty when no record is in it.
std::string StateText(const SectionCoverage& archive, const StateName& state, std::size_t width) {
  const std::size_t count = Count(archive.coverage, state.state);
  if (count == 0) return {};
  Wrapped text(fmt::format("      {} {}:", state.word, count), width);
  for (const CoverageRange& range : archive.coverage.ranges) {
    if (range.state == state.state) text.Add(PeriodsText(archive.section, range.periods));
  }
  return text.Text();
}

TextLine LineOf(const SectionCoverage& archive) {
  const Coverage& coverage = archive.coverage;
  return {
      KindName(archive.section.kind), archive.section.system,
      fmt::format("{} of {} kept", Count(coverage, RecordState::kKept), SizeOf(coverage.bounds)),
      PeriodsText(archive.section, coverage.bounds)};
}

// The lines of one instrument's archives, and what is not there below each.
std::string ArchivesText(std::span<const SectionCoverage> archives, std::size_t width) {
  std::vector<TextLine> lines;
  for (const SectionCoverage& archive : archives) lines.push_back(LineOf(archive));
  const std::string list = ListText(lines);
  std::string text;
  std::size_t begin = 0;
  for (const SectionCoverage& archive : archives) {
    const std::size_t end = list.find('\n', begin) + 1;
    text += list.substr(begin, end - begin);
    for (const StateName& state : kStates) {
      if (state.state != RecordState::kKept) text += StateText(archive, state, width);
    }
    begin = end;
  }
  return text;
}

std::string JsonDate(Period period, PeriodNumber number) {
  return JsonText(DateText(StartOf(period, number)));
}

std::string JsonOf(Period period, const CoverageRange& range) {
  std::vector<JsonMember> members = {{"state", JsonText(NameOf(range.state).key)},
                                     {"from", JsonDate(period, range.periods.first)},
                                     {"to", JsonDate(period, range.periods.last)},
                                     {"records", std::to_string(SizeOf(range.periods))}};
  if (!range.learnt.empty()) members.emplace_back("learnt", JsonText(range.learnt));
  return JsonObject(members);
}

std::string JsonOfRanges(const Coverage& coverage) {
  std::string text;
  for (const CoverageRange& range : coverage.ranges) {
    text += text.empty() ? "[" : ", ";
    text += JsonOf(coverage.period, range);
  }
  return text.append("]");
}

std::string JsonOf(const SectionCoverage& archive) {
  const auto& [section, coverage] = archive;
  std::vector<JsonMember> members = {{"serial", JsonText(section.of.serial)},
                                     {"model", JsonText(section.of.model)},
                                     {"place", JsonText(section.of.place)},
                                     {"kind", JsonText(KindName(section.kind))},
                                     {"section", JsonText(section.system)},
                                     {"from", JsonDate(coverage.period, coverage.bounds.first)},
                                     {"to", JsonDate(coverage.period, coverage.bounds.last)},
                                     {"expected", std::to_string(SizeOf(coverage.bounds))}};
  for (const StateName& state : kStates) {
    members.emplace_back(state.key, std::to_string(Count(coverage, state.state)));
  }
  members.emplace_back("ranges", JsonOfRanges(coverage));
  return JsonObject(members);
}

}  // namespace

const char* WordOf(RecordState state) { return NameOf(state).word; }

std::string InstrumentLine(const StoredSection& section) {
  return NameOf(section.of) + ", read at " + section.of.place;
}

std::string PeriodsText(const StoredSection& section, const PeriodRange& periods) {
  return RangeText(section.kind, DatesOf(PeriodOf(section.kind).value(), periods));
}

std::string GapsText(const std::vector<SectionCoverage>& archives, std::size_t width) {
  std::string text;
  for (std::size_t begin = 0, end = 0; begin < archives.size(); begin = end) {
    const StoredSection& section = archives[begin].section;
    while (end < archives.size() && archives[end].section.instrument == section.instrument) ++end;
    if (!text.empty()) text += '\n';
    text += InstrumentLine(section) + '\n';
    text += ArchivesText(std::span(archives).subspan(begin, end - begin), width);
  }
  return text.empty() ? "the store holds no archive of these\n" : text;
}

std::string GapsJson(const std::vector<SectionCoverage>& archives) {
  std::string text;
  for (const SectionCoverage& archive : archives) {
    text += text.empty() ? "[\n" : ",\n";
    text += JsonOf(archive);
  }
  return text.empty() ? "[]\n" : text + "\n]\n";
}

}  // namespace host
