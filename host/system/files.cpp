#include "host/system/files.h"

#include <fmt/format.h>

#include <cerrno>
#include <system_error>

#include "host/system/console.h"

namespace host {

std::filesystem::path PathOf(const std::string& utf8) {
  return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

std::string PathText(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

std::runtime_error FileError(const char* action, const std::filesystem::path& path) {
  const int reason = errno;
  return std::runtime_error(fmt::format("cannot {} {}: {}", action, PathText(path),
                                        ErrorText({reason, std::generic_category()})));
}

}  // namespace host
