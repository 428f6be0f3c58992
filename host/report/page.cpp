#include "host/report/page.h"

#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "host/report/page_assets.h"

namespace host {
namespace {

// What stands in a script element must not end it, nor begin a comment there. In JSON the character
// only stands within texts.
std::string Embeddable(const std::string& json) {
  std::string text;
  text.reserve(json.size());
  for (const char c : json) {
    if (c == '<') {
      text += "\\u003c";
    } else {
      text += c;
    }
  }
  return text;
}

constexpr char kHead[] =
    "<!doctype html>\n<html lang=\"{language}\">\n<head>\n<meta charset=\"utf-8\">\n"
    "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
    "script-src 'sha256-{script}'; style-src 'sha256-{style}'; img-src data:; "
    "base-uri 'none'; form-action 'none'\">\n"
    "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
    "<meta name=\"color-scheme\" content=\"light dark\">\n<title>irvela</title>\n<style>";

const char* NoScriptText(const std::string& language) {
  return language == "ru" ? "Страница показывает данные скриптом, который хранится в ней самой. "
                            "Разрешите скрипты для этого файла."
                          : "The page shows its data by a script of its own. Allow scripts for "
                            "this file.";
}

}  // namespace

std::string PageWith(const nlohmann::ordered_json& data, const std::string& language) {
  const PageAsset script = PageScript();
  const PageAsset style = PageStyle();
  using Json = nlohmann::ordered_json;
  const std::string json = data.dump(-1, ' ', false, Json::error_handler_t::replace);
  std::string page = fmt::format(kHead, fmt::arg("language", language),
                                 fmt::arg("script", script.hash), fmt::arg("style", style.hash));
  page.append(style.text).append("</style>\n</head>\n<body>\n<noscript>");
  page.append(NoScriptText(language)).append("</noscript>\n");
  page.append("<script id=\"data\" type=\"application/json\">").append(Embeddable(json));
  page.append("</script>\n<script>").append(script.text).append("</script>\n</body>\n</html>\n");
  return page;
}

}  // namespace host
