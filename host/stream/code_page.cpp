#include "host/stream/code_page.h"

#include <array>

namespace host {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

// 0x80 to 0xBF; from 0xC0 on the letters А to я follow in their Unicode order.
constexpr std::array<char32_t, 64> kUpper = {
    0x0402, 0x0403, 0x201A, 0x0453, 0x201E, 0x2026, 0x2020, 0x2021, 0x20AC, 0x2030, 0x0409,
    0x2039, 0x040A, 0x040C, 0x040B, 0x040F, 0x0452, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0xFFFD, 0x2122, 0x0459, 0x203A, 0x045A, 0x045C, 0x045B, 0x045F, 0x00A0,
    0x040E, 0x045E, 0x0408, 0x00A4, 0x0490, 0x00A6, 0x00A7, 0x0401, 0x00A9, 0x0404, 0x00AB,
    0x00AC, 0x00AD, 0x00AE, 0x0407, 0x00B0, 0x00B1, 0x0406, 0x0456, 0x0491, 0x00B5, 0x00B6,
    0x00B7, 0x0451, 0x2116, 0x0454, 0x00BB, 0x0458, 0x0405, 0x0455, 0x0457};

char32_t CodePoint(unsigned char byte) {
  if (byte < 0x20 || byte == 0x7F) return kReplacement;
  if (byte < 0x80) return byte;
  if (byte < 0xC0) return kUpper[byte - 0x80U];
  return 0x0410U + (byte - 0xC0U);
}

// All code points here are below 0x10000.
void AppendUtf8(std::string& out, char32_t code) {
  if (code < 0x80) {
    out += static_cast<char>(code);
  } else if (code < 0x800) {
    out += static_cast<char>(0xC0U | (code >> 6U));
    out += static_cast<char>(0x80U | (code & 0x3FU));
  } else {
    out += static_cast<char>(0xE0U | (code >> 12U));
    out += static_cast<char>(0x80U | ((code >> 6U) & 0x3FU));
    out += static_cast<char>(0x80U | (code & 0x3FU));
  }
}

constexpr std::array<const char*, 32> kLatin = {
    "a", "b", "v", "g", "d", "e", "zh", "z",  "i",  "j",   "k", "l", "m", "n", "o",  "p",
    "r", "s", "t", "u", "f", "h", "c",  "ch", "sh", "sch", "",  "y", "",  "e", "yu", "ya"};

// The Cyrillic letters А to я take two bytes in UTF-8.
const char* LatinOf(unsigned char first, unsigned char second) {
  const unsigned code = (first & 0x1FU) << 6U | (second & 0x3FU);
  if ((first & 0xE0U) != 0xC0U || code < 0x0410 || code > 0x044F) return nullptr;
  return kLatin[(code - 0x0410) % 32];
}

void AppendSlugCharacter(std::string& out, char character) {
  const bool digit = character >= '0' && character <= '9';
  if (character >= 'A' && character <= 'Z') {
    out += static_cast<char>(character - 'A' + 'a');
  } else if (digit || (character >= 'a' && character <= 'z')) {
    out += character;
  } else if (!out.empty() && out.back() != '-') {
    out += '-';
  }
}

}  // namespace

std::string Utf8FromCp1251(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (const char character : text)
    AppendUtf8(out, CodePoint(static_cast<unsigned char>(character)));
  return out;
}

std::string AsciiSlug(std::string_view utf8) {
  std::string out;
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    const char* latin = i + 1 < utf8.size() ? LatinOf(static_cast<unsigned char>(utf8[i]),
                                                      static_cast<unsigned char>(utf8[i + 1]))
                                            : nullptr;
    if (latin == nullptr) {
      AppendSlugCharacter(out, utf8[i]);
    } else {
      out += latin;
      ++i;
    }
  }
  while (!out.empty() && out.back() == '-') out.pop_back();
  return out;
}

}  // namespace host
