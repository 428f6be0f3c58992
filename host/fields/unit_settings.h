// The units of an instrument, where the driver leaves them out or tells another one.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>

#include "host/fields/find.h"
#include "host/fields/units.h"
#include "host/stream/cell.h"
#include "host/stream/section.h"

namespace host {

// What the sections of one instrument have told of its units so far.
class UnitSettings {
 public:
  // A section began. Its fields may be known better once its first row is in, if it is a database.
  void See(const Section& section);
  void See(const Section& section, const Cells& row);

  // None: nothing told. kUnknown: a code that stands for no unit.
  std::optional<Unit> Heat() const;
  std::optional<Unit> Pressure() const;
  // The unit that a column of the database names, by its field; kUnknown when it is not there.
  UnitOf Named(const std::string& setting) const;

 private:
  std::optional<unsigned> CodeOf(const char* own) const;

  // By field: codes and names of units, as the database holds them.
  std::map<std::string, std::string, std::less<>> settings_;
  std::optional<Unit> toldHeat_;
  std::optional<Unit> toldPressure_;
};

// The true unit of a column that an entry of a layout describes.
UnitOf TrueUnit(const Layout& layout, const Entry& entry, const Column& column, const Title& title,
                const UnitSettings& settings);

}  // namespace host
