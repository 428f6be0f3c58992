// Prints every section and column that the driver gives for every model, as Markdown tables. Texts
// come from the stream; what a setting of the instrument changes is read under each setting.
#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <map>
#include <stdexcept>

#include "tests/records/readings.h"

using support::HeaderRecord;
using support::Section;

namespace {

// A setting of the instrument that chooses units.
struct Variant {
  const char* name;
  std::map<std::string, std::string> parameters;
  std::optional<int> version = std::nullopt;
};

struct Listed {
  const char* model;
  tav::Mode mode;
  std::vector<Variant> variants;
};

const Variant kUnknownCode = {"3", {{"EI", "3"}}};

std::vector<Variant> ByCode() {
  return {{"`EI` 0", {{"EI", "0"}}}, {"`EI` 1", {{"EI", "1"}}}, {"`EI` 2", {{"EI", "2"}}}};
}

// Each unit text of the database is its own column's name.
std::map<std::string, std::string> NamesAsTexts() {
  std::map<std::string, std::string> texts;
  for (const char* column : {"RP1k", "RdP1k", "Rt1k", "RQp1k", "RP2k", "RdP2k", "Rt2k", "RQp2k",
                             "RdP3", "RPb", "RP3", "RP4", "Rt3"}) {
    texts[column] = column;
  }
  return texts;
}

const std::vector<Listed>& Models() {
  static const std::vector<Listed> models = {
      {"521", tav::Mode::kOlder, {{"firmware v", {}, 4}, {"firmware w", {}, 12}}},
      {"522", tav::Mode::kOlder, ByCode()},
      {"523", tav::Mode::kOlder, ByCode()},
      {"521.1x", tav::Mode::kOlder, ByCode()},
      {"721",
       tav::Mode::kOlder,
       {{"the text of the database column that is named here", NamesAsTexts()}}},
      // The code of the pressures and that of the heats are never the same here, to tell which
      // one a column follows.
      {"k7-521",
       tav::Mode::kK7,
       {{"`F001` 0 and `F002` 1", {{"F001", "0"}, {"F002", "1"}}},
        {"`F001` 1 and `F002` 2", {{"F001", "1"}, {"F002", "2"}}},
        {"`F001` 2 and `F002` 0", {{"F001", "2"}, {"F002", "0"}}}}},
      {"k7-523",
       tav::Mode::kK7,
       {{"`F000` 0", {{"F000", "0"}}},
        {"`F000` 1", {{"F000", "1"}}},
        {"`F000` 2", {{"F000", "2"}}}}},
  };
  return models;
}

simulator::Settings SettingsOf(const Listed& listed, const Variant& variant) {
  simulator::Settings settings;
  settings.model = listed.model;
  settings.special.parameters = variant.parameters;
  settings.special.version = variant.version;
  return settings;
}

std::vector<Section> SectionsOf(const Listed& listed, const Variant& variant) {
  return support::TakeApart(records::Batch(SettingsOf(listed, variant), listed.mode));
}

// --- What a table of columns says ---

// The section under each variant; they differ in their units.
using Variants = std::vector<Section>;

std::string NameOf(const Section& section) {
  return fmt::format("{} {}", section.kind,
                     section.title.empty() ? "\"\"" : records::Utf8(section.title));
}

std::string UnitsAt(const Variants& variants, std::size_t column) {
  std::vector<std::string> units;
  for (const Section& section : variants) {
    units.push_back(records::Utf8(section.columns.at(column).unit));
  }
  const bool same =
      std::adjacent_find(units.begin(), units.end(), std::not_equal_to<>()) == units.end();
  return same ? units.front() : fmt::format("{}", fmt::join(units, ", "));
}

// Everything but the unit.
std::string CellsOf(const HeaderRecord& column) {
  const auto unless = [](const std::string& text, const std::string& usual) {
    return text == usual ? "" : text.empty() ? "\"\"" : records::Utf8(text);
  };
  return fmt::format("| {} | {} | {} | {{}} | {} | {} | {} |\n", records::Utf8(column.name),
                     column.type, column.width, column.role, unless(column.caption, column.name),
                     unless(column.group, tav::kDefaultGroup));
}

// "37 and 32": what the host gets a row in.
std::string WritesOf(const std::vector<support::Bytes>& row) {
  const auto alike = [&](const auto& piece) { return piece.size() == row[0].size(); };
  if (row.size() == 1) return "one write";
  if (std::all_of(row.begin(), row.end(), alike)) {
    return fmt::format("{} writes of {}", row.size(), row[0].size());
  }
  return fmt::format("writes of {} and {}", row[0].size(), row[1].size());
}

std::string ShapeOf(const Section& section) {
  std::size_t bytes = 0;
  for (const HeaderRecord& column : section.columns)
    bytes += static_cast<std::size_t>(column.width);
  if (bytes != section.Row(0).size()) throw std::runtime_error("rows don't fit the columns");
  const auto columns = static_cast<int>(section.columns.size());
  return fmt::format("{} columns, {}. A row is {} bytes in {}. {} end marker.", columns,
                     section.announced < 0          ? "not announced"
                     : section.announced == columns ? "announced"
                                                    : "announced as another number",
                     bytes, WritesOf(section.rows[0]), section.ended ? "An" : "No");
}

// What must be the same for two sections to stand in one table.
std::string TableOf(const Section& section) {
  std::string table = ShapeOf(section) + "\n\n";
  table += "| Column | Type | Width | Unit | Role | Caption | Group |\n";
  table += "|---|---|---|---|---|---|---|\n";
  for (const HeaderRecord& column : section.columns) table += CellsOf(column);
  return table;
}

// --- The tables of a model ---

// Sections whose tables are the same but for the units.
struct Group {
  std::string table;  // with a {} for each unit
  std::vector<Variants> sections;

  std::string Heading() const {
    std::vector<std::string> names;
    for (const Variants& variants : sections) names.push_back(NameOf(variants.front()));
    return fmt::format("{}", fmt::join(names, ", "));
  }
  // The first section's units, and in brackets those of the sections that have others.
  std::string Unit(std::size_t column) const {
    std::string unit = UnitsAt(sections.front(), column);
    std::string others;
    for (const Variants& variants : sections) {
      const std::string other = UnitsAt(variants, column);
      if (other == UnitsAt(sections.front(), column)) continue;
      others +=
          fmt::format("{}{}: {}", others.empty() ? "" : "; ", NameOf(variants.front()), other);
    }
    return others.empty() ? unit : fmt::format("{} ({})", unit, others);
  }
  void Print() const {
    fmt::print("\n### {}\n\n", Heading());
    std::size_t column = 0;
    for (std::size_t at = 0; at < table.size(); ++at) {
      if (table.compare(at, 2, "{}") == 0) {
        fmt::print("{}", Unit(column++));
        ++at;
      } else {
        fmt::print("{}", table[at]);
      }
    }
  }
};

std::vector<Group> GroupsOf(const std::vector<std::vector<Section>>& readings) {
  std::vector<Group> groups;
  for (std::size_t i = 0; i < readings.front().size(); ++i) {
    Variants variants;
    for (const auto& reading : readings) variants.push_back(reading.at(i));
    const std::string table = TableOf(variants.front());
    auto group = std::find_if(groups.begin(), groups.end(),
                              [&](const Group& one) { return one.table == table; });
    if (group == groups.end()) group = groups.insert(group, {table, {}});
    group->sections.push_back(variants);
  }
  return groups;
}

// --- The lines above them ---

void PrintUnknownCode(const Listed& listed) {
  std::string cut;
  for (const Section& section : SectionsOf(listed, kUnknownCode)) {
    const auto written = static_cast<int>(section.columns.size());
    if (written == section.announced) continue;
    cut += fmt::format("{}{} {} of {}", cut.empty() ? "" : ", ", NameOf(section), written,
                       section.announced);
  }
  fmt::print(
      "\nAny other code names no unit: a layout ends before its first column that follows the "
      "code, its rows stay whole. Headers then written of those announced: {}.\n",
      cut);
}

void PrintContinuous(const Listed& listed) {
  std::vector<std::string> names;
  for (const Section& section :
       support::TakeApart(records::ContinuousCycle(SettingsOf(listed, listed.variants[0])))) {
    names.push_back(NameOf(section));
  }
  fmt::print("\nA cycle of continuous reading in which an hour and a day are due: {}.\n",
             fmt::join(names, ", "));
}

// Model 521 tells its units by its firmware.
void PrintFirmware(const Listed& listed) {
  fmt::print("\n| Version byte | Version | Pressure | Heat |\n|---|---|---|---|\n");
  for (int version = 0; version <= 16; ++version) {
    const auto sections = SectionsOf(listed, {"", {}, version});
    if (sections.empty()) {
      fmt::print("| {} | not read | | |\n", version);
      continue;
    }
    fmt::print("| {} | {} | {} | {} |\n", version, sections[0].version,
               records::Utf8(sections[0].Column("P1").unit),
               records::Utf8(sections[1].Column("Q").unit));
  }
}

void Print(const Listed& listed) {
  std::vector<std::vector<Section>> readings;
  std::vector<std::string> names;
  for (const Variant& variant : listed.variants) {
    readings.push_back(SectionsOf(listed, variant));
    names.push_back(variant.name);
  }
  const Section& first = readings.front().front();
  fmt::print("\n## {}\n\nTitles carry the model {} and the version {}.\n", listed.model,
             records::Utf8(first.model), first.version);
  fmt::print("Units, in the order of a list of them: {}.\n", fmt::join(names, ", "));
  if (listed.variants[0].parameters.contains("EI")) PrintUnknownCode(listed);
  if (listed.variants[0].version) PrintFirmware(listed);
  if (listed.mode == tav::Mode::kOlder) PrintContinuous(listed);
  for (const Group& group : GroupsOf(readings)) group.Print();
}

// --- The streams ---

// FNV-1a over the calls, each with its length.
std::uint32_t DigestOf(const records::Writes& writes) {
  std::uint32_t digest = 2166136261u;
  const auto add = [&](std::size_t byte) {
    digest = (digest ^ static_cast<std::uint32_t>(byte)) * 16777619u;
  };
  for (const support::Bytes& write : writes) {
    add(write.size());
    for (const std::uint8_t byte : write) add(byte);
  }
  return digest;
}

void PrintStream(const simulator::Settings& settings, tav::Mode mode, const std::string& name) {
  const records::Writes writes = records::Batch(settings, mode);
  fmt::print("| {} | {} | {} | {:08X} |\n", settings.model, name, writes.size(), DigestOf(writes));
}

void PrintStreams() {
  fmt::print("\n## Streams\n\n| Model | Setting | Writes | Digest |\n|---|---|---|---|\n");
  for (const Listed& listed : Models()) {
    for (const Variant& variant : listed.variants) {
      PrintStream(SettingsOf(listed, variant), listed.mode, variant.name);
    }
    if (!listed.variants[0].version) continue;
    for (int mode = 1; mode <= 10; ++mode) {
      simulator::Settings settings = SettingsOf(listed, listed.variants[0]);
      settings.special.modeCode = mode;
      PrintStream(settings, listed.mode, fmt::format("`SP` {}", mode));
    }
  }
}

}  // namespace

int main() try {
  for (const Listed& listed : Models()) Print(listed);
  PrintStreams();
} catch (const std::exception& error) {
  fmt::print(stderr, "list_records: {}\n", error.what());
  return 1;
}
