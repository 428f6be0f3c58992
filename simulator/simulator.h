// Simulated instruments, served as an instrument on a line is: over a pseudo terminal or a TCP
// port.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace simulator {

// What goes wrong with a reply, on every Nth exchange (N counts from 1: every = 1 is each reply).
struct Fault {
  std::string kind;  // one of FaultsOf(model)
  int every = 1;     // of "frozen": how many replies come before it
  int length = 240;  // of "frozen": requests without a reply; a host waits half a second for each
};

// Local date and time of the instrument's clock.
struct ClockTime {
  int year = 2016, month = 9, day = 4, hour = 13, minute = 5, second = 9;
};

// What makes a simulated instrument an unusual one. The defaults are an ordinary instrument.
struct Special {
  std::optional<int> version;   // firmware version byte, 0 to 255; none: the model's own
  std::optional<int> modeCode;  // mode code SP, 0 to 255; none: 0
  int unitsCode = 0;            // see UnitsOf(model); others, up to 255, are unknown ones
  int idleSystem = 0;           // heat system with mode code 'c' (99): not worth reading
  int silentSystem = 0;  // heat system that can't be opened: its identification gets no reply
  int logEntries = 40;   // entries in each log, 0 to 100; 100 leaves no end mark
  std::string brokenParameter;  // database column whose text is no number and no date
  // Texts of database columns other than the model's own, by name: {"EI", "3"}, K7 {"F001", "2"}.
  std::map<std::string, std::string> parameters;
  std::optional<int> failingPage;  // flash page that an error reply without its end answers
};

// Another instrument on the same line; an ordinary one, with values of its own.
struct Neighbour {
  std::string model;
  int number = 1;
};

struct Settings {
  std::string model = "521";  // one of Models()
  int number = 1;             // network number, 0 to 255
  std::uint32_t seed = 1;     // the same seed gives the same values
  int lineSpeed = 0;          // bit/s, bytes paced as 11 bits each; 0: as fast as it goes
  std::vector<Fault> faults;
  std::optional<ClockTime> clock;  // a clock that stands still; none: the local time
  Special special;
  // Requests are then told of by nobody: most are meant for another one.
  std::vector<Neighbour> neighbours;
  // Told what was wrong with a request, one sentence each, from the serving thread.
  std::function<void(const std::string&)> report;
};

struct Choice {
  const char* name;
  const char* description;
};
std::span<const Choice> Models();
std::span<const Choice> Faults();  // of all models
// What fits a model. Both throw std::invalid_argument for a model that there isn't.
std::vector<Choice> FaultsOf(const std::string& model);
std::span<const Choice> UnitsOf(const std::string& model);

// A simulated instrument that answers on a thread of its own until it is destroyed.
class Served {
 public:
  virtual ~Served() = default;
  // What a host opens: the path of a device file, or host:port.
  virtual std::string Address() const = 0;
};

// Both throw std::runtime_error or std::invalid_argument with a sentence that says what to do.
// A pseudo terminal; link, when not empty, becomes a symbolic link to its device file and is
// removed at the end. Not on Windows.
std::unique_ptr<Served> ServePty(const Settings& settings, const std::string& link);
// A raw TCP port on the loopback interface; port 0 takes any free one. One connection at a time,
// the next one after it ends.
std::unique_ptr<Served> ServeTcp(const Settings& settings, std::uint16_t port);

}  // namespace simulator
