// A folder of the test's own that goes with it.
#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>

namespace host_test {

class ScratchFolder {
 public:
  ScratchFolder() {
    // Tests run at the same time, and each takes its folder away: only a new one is its own.
    std::random_device random;
    do {
      path_ = std::filesystem::temp_directory_path() / ("irvela-test-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(path_));
  }
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  std::filesystem::path operator/(const std::filesystem::path& name) const { return path_ / name; }
  std::string Load(const std::string& name) const {
    std::ifstream file(path_ / name, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
  }
  void Save(const std::string& name, const std::string& text) const {
    std::ofstream(path_ / name, std::ios::binary) << text;
  }

 private:
  std::filesystem::path path_;
};

}  // namespace host_test
