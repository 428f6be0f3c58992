// A column of an archive as the page carries it: whole numbers, each as the step from the one
// before, which compresses far better than the values themselves.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/fields/fields.h"
#include "host/reading/periods.h"

namespace host {

// Digits behind the point that a value of a field is worth: as many as the instruments have.
int DecimalsOf(const Field& field);

struct PackedColumn {
  // 0: no value; else twice the step and 1, or for a step down twice its size. A step is the
  // value times ten to the power of decimals, less the last one before it that was there.
  std::vector<std::uint64_t> codes;
  unsigned bytes = 1;  // that the largest code takes
  // Values beyond what such numbers can be, with their places; they have no code.
  std::vector<std::pair<std::size_t, double>> wild;
};

// values: nothing, or not a number, where there is no value.
PackedColumn Pack(const std::vector<std::optional<double>>& values, int decimals);
PackedColumn Pack(const std::vector<PeriodNumber>& periods);

// The lowest bytes of all codes of all columns, then their second bytes, and so on: bytes that are
// alike stand together. columns: of one length.
std::vector<std::string> Planes(const std::vector<PackedColumn>& columns);

}  // namespace host
