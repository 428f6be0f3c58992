#include "host/reading/driver_set_up.h"

#include <fmt/format.h>

#include <algorithm>

namespace host {
namespace {

constexpr char kNetworkNumber = 'N';

// Stand for a line and a stream while the driver is only asked.
class NoPort final : public HostPort {
 public:
  bool Control(int) override { return false; }
  bool SetTimeouts(unsigned, unsigned, unsigned, unsigned, unsigned) override { return false; }
  void Reserved2() override {}
  bool SetLine(int, int, int, int, int, int) override { return false; }
  void Reserved4() override {}
  bool SetBuffers(int, int) override { return false; }
  int Read(unsigned, unsigned, void*) override { return 0; }
  int Write(const void*, unsigned) override { return 0; }
};

class NoStream final : public HostStream {
 public:
  bool Message(const char*, const char*, unsigned) override { return false; }
  bool Write(const void*, unsigned) override { return false; }
};

std::vector<int> SpeedsOf(TavDrvV1& driver, int kind) {
  std::vector<int> speeds;
  int speed = 0;
  const unsigned count = driver.GetBaud(kind, 1, &speed);
  for (unsigned i = 1; i <= count; ++i) {
    driver.GetBaud(kind, static_cast<int>(i), &speed);
    speeds.push_back(speed);
  }
  return speeds;
}

void CheckSpeed(TavDrvV1& driver, int kind, int baud) {
  const std::vector<int> offered = SpeedsOf(driver, kind);
  if (std::count(offered.begin(), offered.end(), baud) > 0) return;
  throw UsageError(
      fmt::format("--speed {}: this kind of instrument offers {}", baud, fmt::join(offered, ", ")));
}

void CheckNumber(TavDrvV1& driver, int kind, int number) {
  int limit = 0;
  driver.GetNumberLimit(kind, kNetworkNumber, &limit);
  if (number >= 0 && number <= limit) return;
  throw UsageError(fmt::format("--number {}: the largest is {}", number, limit));
}

// The driver takes small letters for most of the groups; here there is one letter for each.
void CheckGroups(TavDrvV1& driver, int kind, const std::string& groups) {
  std::string offered;
  for (const char letter : AllReadGroups()) {
    if (driver.CanReadGroup(kind, letter) != 0) offered += letter;
  }
  if (groups.find_first_not_of(offered) == std::string::npos) return;
  throw UsageError(fmt::format("--groups {}: the letters are {}", groups, offered));
}

bool Wants(const ReadSettings& settings, tav::ReadGroup group) {
  return settings.groups.find(static_cast<char>(group)) != std::string::npos;
}

void SetParameter(TavDrvV1& driver, tav::Parameter parameter, int value) {
  driver.SetupParametr(static_cast<char>(parameter), sizeof value, &value);
}

}  // namespace

std::vector<int> OfferedSpeeds(const DriverLibrary& library, tav::Mode kind) {
  NoStream stream;
  NoPort port;
  return SpeedsOf(*library.Create(stream, port), static_cast<int>(kind));
}

void CheckSettings(const DriverLibrary& library, const ReadSettings& settings) {
  NoStream stream;
  NoPort port;
  const DriverPointer driver = library.Create(stream, port);
  const int kind = static_cast<int>(settings.kind);
  CheckNumber(*driver, kind, settings.number);
  CheckGroups(*driver, kind, settings.groups);
  if (settings.baud) CheckSpeed(*driver, kind, *settings.baud);
}

// The driver takes the letter for K7 and does not look at it.
std::string UnreadGroups(const ReadSettings& settings) {
  const bool read = settings.kind != tav::Mode::kK7 || !Wants(settings, tav::ReadGroup::kLogs) ||
                    Wants(settings, tav::ReadGroup::kDatabase);
  return read ? "" : "the logs of a k7 instrument belong to its database, group B";
}

void RequireReadGroups(const ReadSettings& settings) {
  const std::string unread = UnreadGroups(settings);
  const char logs = static_cast<char>(tav::ReadGroup::kLogs);
  if (unread.empty() || settings.groups.find_first_not_of(logs) != std::string::npos) return;
  throw UsageError(fmt::format("--groups {}: {}", settings.groups, unread));
}

void SetUpDriver(TavDrvV1& driver, const ReadSettings& settings) {
  const int kind = static_cast<int>(settings.kind);
  driver.SetupNumer(kNetworkNumber, settings.number);
  for (const char letter : settings.groups) driver.SetupReadGroup(letter, true);
  driver.SetupDateTime(settings.from, settings.to);
  driver.SetupBaud(settings.baud.value_or(SpeedsOf(driver, kind).front()));
  SetParameter(driver, tav::Parameter::kAttempts, settings.attempts);
  SetParameter(driver, tav::Parameter::kDoubleReading, settings.doubleRead ? 1 : 0);
  SetParameter(driver, tav::Parameter::kValidityTest, settings.validity ? 1 : 0);
  SetParameter(driver, tav::Parameter::kPause, settings.pause);
  SetParameter(driver, tav::Parameter::kContinuous, settings.follow ? 1 : 0);
}

}  // namespace host
