// How an instrument is told by its identification reply, and what the host is told of it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace older {

struct Identity {
  std::uint8_t family;  // byte 3 of the reply
  std::uint8_t model;   // byte 4
  const char* name;     // "Tip", and in the titles
  const char* key;      // modelKey
  std::uint16_t clock;  // where the clock stands in memory
  // Firmware by byte 5 of the reply, null where none is known. Empty: any, called "V" and the byte.
  std::span<const char* const> versions = {};
};

// Bytes of the reply to an identification, and its data bytes.
inline constexpr std::size_t kIdentificationSize = 8;
inline constexpr std::size_t kFamilyAt = 3;
inline constexpr std::size_t kModelAt = 4;
inline constexpr std::size_t kVersionAt = 5;

// The firmware of a version byte; null: unknown, or any.
constexpr const char* VersionText(const Identity& identity, std::uint8_t version) {
  return version < identity.versions.size() ? identity.versions[version] : nullptr;
}

// Those that a reading knows.
using Identities = std::span<const Identity* const>;

}  // namespace older
