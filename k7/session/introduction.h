// How a model introduces itself and what is asked of it first. The models define theirs.
#pragma once

#include <cstdint>
#include <span>

namespace k7 {

struct Introduction {
  std::uint16_t code;  // of its reply to an identification
  std::uint32_t devType;
  const char* name;
  // The basic read: the serial number, one or two units, two settings that nothing uses.
  std::span<const std::uint16_t> basicParameters;
  bool ownHeatUnit;  // two units; else the pressure unit serves for both
};

using Introductions = std::span<const Introduction* const>;

}  // namespace k7
