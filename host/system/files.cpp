#include "host/system/files.h"

#include <fmt/format.h>

#include <cerrno>
#include <cstdio>

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
  return FileError(action, path, {errno, std::generic_category()});
}

std::runtime_error FileError(const char* action, const std::filesystem::path& path,
                             const std::error_code& reason) {
  return std::runtime_error(
      fmt::format("cannot {} {}: {}", action, PathText(path), ErrorText(reason)));
}

void WriteStandardOutput(const std::string& text) {
  const bool whole = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
  if (!whole || std::fflush(stdout) != 0) throw FileError("write", "the standard output");
}

void WriteStandardError(const std::string& text) {
  std::fwrite(text.data(), 1, text.size(), stderr);
  std::fflush(stderr);
}

}  // namespace host
