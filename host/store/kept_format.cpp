#include "host/store/kept_format.h"

namespace host {
namespace {

// The first column of archives and logs; other dates are shown as the texts that they are kept as.
Cell TextCell(const std::string& text, tav::Type type) {
  const auto time = type == tav::Type::kDateTime ? ParseTime(text) : std::nullopt;
  return time ? Cell(*time) : Cell(text);
}

}  // namespace

KeptFormat LoadFormat(Database& database, const StoredSection& section, long long format) {
  KeptFormat kept;
  kept.section.title = {section.kind,      section.of.model, section.of.version,
                        section.of.serial, section.system,   {}};
  Column column;
  std::string field;
  std::string unit;
  int type = 0;
  int width = 0;
  int role = 0;
  soci::indicator hasUnit = soci::i_null;
  soci::statement select =
      (database.Session().prepare
           << "SELECT field, unit, caption, name, driver_unit, type, width, role_code, group_name "
              "FROM columns WHERE format = :format ORDER BY position",
       soci::use(format), soci::into(field), soci::into(unit, hasUnit), soci::into(column.caption),
       soci::into(column.name), soci::into(column.unit), soci::into(type), soci::into(width),
       soci::into(role), soci::into(column.group));
  for (select.execute(); select.fetch();) {
    column.type = static_cast<tav::Type>(type);
    column.width = static_cast<unsigned char>(width);
    column.role = static_cast<tav::Role>(role);
    kept.section.columns.push_back(column);
    kept.section.units.push_back(hasUnit == soci::i_ok ? unit : "");
    kept.fields.push_back(field);
  }
  return kept;
}

Cell CellOf(const nlohmann::ordered_json& value, tav::Type type) {
  if (value.is_null()) return {};
  if (value.is_string()) return TextCell(value.get<std::string>(), type);
  if (!value.is_number()) return value.dump();
  if (type == tav::Type::kFloat) return value.get<float>();
  if (value.is_number_integer()) return value.get<std::uint32_t>();
  return value.get<double>();
}

TAVDT TimeOf(const std::string& text) { return ParseTime(text).value_or(TAVDT{}); }

}  // namespace host
