// The page's scripts and styles, bundled when the program is built.
#pragma once

#include <string_view>

namespace host {

struct PageAsset {
  std::string_view text;  // UTF-8
  const char* hash;       // SHA-256 of it, in base64, as a content security policy names it
};

PageAsset PageScript();
PageAsset PageStyle();

}  // namespace host
