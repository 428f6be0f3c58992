// Code page 1251, in which the driver's texts come.
#pragma once

#include <string>
#include <string_view>

namespace host {

// UTF-8 that is safe to show: control characters and undefined bytes become U+FFFD.
std::string Utf8FromCp1251(std::string_view text);

// Lower-case Latin letters, digits and hyphens only, for file names: "ТВ1 ИЗМ" gives "tv1-izm".
std::string AsciiSlug(std::string_view utf8);

}  // namespace host
