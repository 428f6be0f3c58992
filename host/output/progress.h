// Shows how far a reading is: a bar on a terminal, else a line now and then. Goes to the standard
// error, so that the standard output holds nothing but the sections.
#pragma once

#include <chrono>
#include <mutex>
#include <string>

namespace host {

class Progress {
 public:
  Progress();
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  // percent 0 to 100; below 0 leaves the number as it was.
  void Update(int percent, const std::string& step);
  // Prints a line above the bar. Safe from any thread.
  void Print(const std::string& line);
  // Writes to the standard output without leaving a piece of the bar in it. Safe from any thread.
  // Throws std::runtime_error when it cannot be written.
  void PrintResult(const std::string& text);
  // Takes the bar away.
  void Clear();

 private:
  void Draw();
  void Erase();
  void Announce();

  std::mutex mutex_;
  bool terminal_;
  bool drawn_ = false;
  int percent_ = 0;
  std::string step_;
  std::string announcedStep_;
  int announcedPercent_ = -1;
};

}  // namespace host
