#include "host/output/finding_list.h"

#include <algorithm>

#include "host/checks/wording.h"
#include "host/output/folded_table.h"
#include "host/output/json_writer.h"

namespace host {
namespace {

std::string WhenOf(const Finding& finding) {
  const std::string from = ShortDate(finding.section.kind, finding.from);
  const std::string to = ShortDate(finding.section.kind, finding.to);
  return from == to ? from : from + " to " + to;
}

TextLine LineOf(const Finding& finding) {
  std::string section = finding.kind;
  if (!section.empty()) section += ' ' + finding.section.system;
  return {finding.note ? finding.rule + " (note)" : finding.rule, section, WhenOf(finding)};
}

// Findings that differ in the field alone.
struct Alike {
  TextLine line;
  std::string sentence;  // of the first
  std::vector<std::string> others;

  TextLine Whole() const {
    TextLine whole = line;
    whole.push_back(sentence);
    for (std::size_t i = 0; i < others.size(); ++i) {
      whole.back().append(i == 0 ? "; also " : ", ").append(others[i]);
    }
    return whole;
  }
};

void AddAlike(std::vector<Alike>& lines, const Finding& finding) {
  const TextLine line = LineOf(finding);
  const auto found = std::find_if(lines.begin(), lines.end(), [&](const Alike& each) {
    return !finding.field.empty() && each.line == line;
  });
  if (found == lines.end()) {
    lines.push_back({line, finding.sentence, {}});
  } else {
    found->others.push_back(finding.field);
  }
}

std::string NumberOrNull(const Finding& finding, double FoundNumbers::*number) {
  return finding.numbers ? JsonValue((*finding.numbers).*number) : "null";
}

std::string JsonOf(const Finding& finding) {
  const FoundNumbers numbers = finding.numbers.value_or(FoundNumbers{});
  const std::string difference =
      finding.numbers ? JsonValue(numbers.found - numbers.expected) : "null";
  const JsonMember members[] = {{"serial", JsonText(finding.section.of.serial)},
                                {"model", JsonText(finding.section.of.model)},
                                {"place", JsonText(finding.section.of.place)},
                                {"rule", JsonText(finding.rule)},
                                {"note", finding.note ? "true" : "false"},
                                {"kind", JsonTextOrNull(finding.kind)},
                                {"section", JsonTextOrNull(finding.section.system)},
                                {"from", JsonText(finding.from)},
                                {"to", JsonText(finding.to)},
                                {"records", std::to_string(finding.records)},
                                {"field", JsonTextOrNull(finding.field)},
                                {"unit", JsonTextOrNull(numbers.unit)},
                                {"expected", NumberOrNull(finding, &FoundNumbers::expected)},
                                {"found", NumberOrNull(finding, &FoundNumbers::found)},
                                {"difference", difference},
                                {"text", JsonText(finding.sentence)}};
  return JsonObject(members);
}

}  // namespace

std::string FindingsText(const std::vector<Finding>& findings) {
  std::string text;
  for (std::size_t i = 0; i < findings.size();) {
    const StoredSection& first = findings[i].section;
    std::vector<Alike> alike;
    for (; i < findings.size() && findings[i].section.instrument == first.instrument; ++i) {
      AddAlike(alike, findings[i]);
    }
    std::vector<TextLine> lines;
    for (const Alike& each : alike) lines.push_back(each.Whole());
    if (!text.empty()) text += '\n';
    text.append(NameOf(first.of)).append(", read at ").append(first.of.place).append(1, '\n');
    text += ListText(lines);
  }
  return text.empty() ? "nothing was found\n" : text;
}

std::string FindingsJson(const std::vector<Finding>& findings) {
  std::string text;
  for (const Finding& finding : findings) {
    text += text.empty() ? "[\n" : ",\n";
    text += JsonOf(finding);
  }
  return text.empty() ? "[]\n" : text + "\n]\n";
}

std::string RulesText(std::span<const Rule> rules) {
  std::vector<TextLine> lines;
  for (const Rule& rule : rules) lines.push_back({rule.name, rule.about});
  return ListText(lines, "");
}

}  // namespace host
