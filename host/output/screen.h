// The standard output and the standard error, so that neither leaves a piece of a bar in the other.
// Safe from any thread.
#pragma once

#include <functional>
#include <mutex>
#include <string>

namespace host {

class Screen {
 public:
  using Write = std::function<void(const std::string& text)>;

  // The program's own. Writing results throws std::runtime_error when it cannot be done.
  Screen();
  // terminal: whether a bar can be drawn on the error; width: how many characters of it.
  Screen(
      bool terminal, Write result, Write error,
      std::function<std::size_t()> width = [] { return std::size_t{80}; });
  ~Screen();
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;

  bool IsTerminal() const { return terminal_; }
  // Characters that a bar may have: it must not fill the line, which some terminals break then.
  std::size_t BarWidth() const { return width_() - 1; }
  // Draws the bar, in place of the one before. On terminals only.
  void DrawBar(const std::string& bar);
  void TakeBarAway();
  // A line of the standard error; above the bar.
  void PrintLine(const std::string& line);
  // To the standard output; the bar comes again when it is drawn next.
  void PrintResult(const std::string& text);

 private:
  void Erase();

  bool terminal_;
  Write result_;
  Write error_;
  std::function<std::size_t()> width_;
  std::mutex mutex_;
  std::string bar_;
  bool drawn_ = false;
};

}  // namespace host
