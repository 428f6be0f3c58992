// Bytes as a page carries them.
#pragma once

#include <string>
#include <vector>

namespace host {

// One behind the other, compressed ("raw deflate", RFC 1951), in base64. Each piece is compressed
// for itself, as fits its bytes.
std::string Packed(const std::vector<std::string>& pieces);

}  // namespace host
