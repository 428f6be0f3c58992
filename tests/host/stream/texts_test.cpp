#include <doctest/doctest.h>

#include "host/stream/code_page.h"
#include "host/stream/section.h"

TEST_CASE("texts of code page 1251 become UTF-8 and file names") {
  CHECK(host::Utf8FromCp1251("\xC0\xFF\xA8\xB8\xB9\x98\n\x88") == "АяЁё№��€");
  CHECK(host::AsciiSlug("ТВ1 Изменения/№") == "tv1-izmeneniya");
  CHECK(host::AsciiSlug("ОБЩ Электропитание") == "obsch-elektropitanie");
  CHECK(host::AsciiSlug("../..") == "");
}

TEST_CASE("kinds have names, whatever byte stands for them") {
  std::string names;
  for (const char kind : {'O', 'H', 'D', 'M', 'S', 'B', '\xFF'}) {
    names += std::string(host::KindName(static_cast<tav::TitleKind>(kind))) + ' ';
  }
  CHECK(names == "current hours days months log database section ");
}
