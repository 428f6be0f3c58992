// Adding up the values of records, and telling whether the sum is that of another record.
#pragma once

#include <string>
#include <vector>

namespace host {

using UnitTexts = std::vector<std::string>;  // of each field

// Sums of the fields of some records. What is not in one unit, or not in every record, has none.
class Sums {
 public:
  explicit Sums(std::size_t fields) : sums_(fields) {}

  // units must live as long as the sums.
  void Add(const std::vector<double>& values, const UnitTexts& units);
  std::size_t Records() const { return records_; }
  // Not a number where there is none, or where it is in another unit.
  double Of(std::size_t field, const UnitTexts& units) const;

 private:
  std::vector<double> sums_;
  const UnitTexts* units_ = nullptr;
  std::size_t records_ = 0;
};

// Whether a sum of so many values is what was expected. A sum of values that the instrument has
// rounded to the third place may be off by a thousandth for each; what is rounded up and down
// mostly cancels out. tolerance: percent. True when either is not a number.
bool AddsUp(double sum, double expected, std::size_t values, double tolerance);

}  // namespace host
