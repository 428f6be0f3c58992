#include "host/output/kept_list.h"

#include <utility>

#include "host/output/folded_table.h"
#include "host/output/json_writer.h"

namespace host {
namespace {

const TextLine kHeading = {"", "", "records", "first", "last", "missing", "not held", "changed"};

std::string NumberText(std::size_t number) { return number == 0 ? "" : std::to_string(number); }

TextLine LineOf(const KeptSection& section) {
  return {section.kind,
          section.system,
          std::to_string(section.records),
          section.first,
          section.last,
          NumberText(section.missing),
          NumberText(section.absent),
          NumberText(section.changed)};
}

std::string TitleOf(const KeptSection& section) {
  return section.model + ", number " + section.serial + ", read at " + section.place + '\n';
}

std::string JsonOf(const KeptSection& section) {
  const JsonMember members[] = {
      {"serial", JsonText(section.serial)},         {"model", JsonText(section.model)},
      {"place", JsonText(section.place)},           {"kind", JsonText(section.kind)},
      {"section", JsonText(section.system)},        {"records", std::to_string(section.records)},
      {"first", JsonTextOrNull(section.first)},     {"last", JsonTextOrNull(section.last)},
      {"missing", std::to_string(section.missing)}, {"absent", std::to_string(section.absent)},
      {"changed", std::to_string(section.changed)}};
  return JsonObject(members);
}

}  // namespace

std::string KeptText(const std::vector<KeptSection>& sections) {
  std::string text;
  for (std::size_t i = 0; i < sections.size();) {
    const std::string title = TitleOf(sections[i]);
    std::vector<TextLine> lines = {kHeading};
    for (; i < sections.size() && TitleOf(sections[i]) == title; ++i) {
      lines.push_back(LineOf(sections[i]));
    }
    if (!text.empty()) text += '\n';
    text += title;
    text += ListText(lines);
  }
  return text.empty() ? "the store holds nothing\n" : text;
}

std::string KeptJson(const std::vector<KeptSection>& sections) {
  std::string text;
  for (const KeptSection& section : sections) {
    text += text.empty() ? "[\n" : ",\n";
    text += JsonOf(section);
  }
  return text.empty() ? "[]\n" : text + "\n]\n";
}

}  // namespace host
