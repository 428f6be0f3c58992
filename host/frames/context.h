// What frames told of the line so far. It knows the driver's models, so that only this folder
// includes it.
#pragma once

#include <optional>

#include "host/frames/frame.h"
#include "k7/models/catalogue.h"
#include "older/models/catalogue.h"

namespace host::frames {

struct Context {
  Protocol protocol = Protocol::kUnknown;  // of the last frame
  bool only = false;                       // no frames of the other one
  const older::Model* older = nullptr;     // null: not known
  const k7::Model* k7 = nullptr;
  std::uint8_t version = 0xFF;  // byte of the identification
  Bytes asked = {};             // the last request; empty: none
  Bytes before = {};            // the one before it
  Bytes flash = {};             // what came of the pages that it asks for

  // Remembers a request that was sent.
  void Ask(ByteView request);
  // What an identification told: of an older instrument, of a K7 one.
  void Identify(std::uint8_t family, std::uint8_t code, std::uint8_t versionByte);
  void Identify(unsigned code);
};

// As the program's other commands name them.
struct ModelName {
  const char* name;
  const older::Model* older;  // one of the two
  const k7::Model* k7;
};
std::span<const ModelName> NamedModels();
const char* NameOf(const older::Model& model);
const char* NameOf(const k7::Model& model);

}  // namespace host::frames
