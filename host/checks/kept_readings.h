// The readings of the store: when each instrument was read, where, and how right its clock was.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "host/store/database.h"

namespace host {

// Seconds since 1970-01-01 of "2016-09-04 13:05:09", and the text of them. What is no date gives 0.
long long SecondsOf(const std::string& time);
std::string TextOfSeconds(long long seconds);

struct KeptReading {
  long long id = 0;
  long long begun = 0;                    // seconds, of this machine's clock
  std::size_t place = 0;                  // the same number: the same line and network number
  std::optional<long long> difference{};  // seconds that the instrument's clock was ahead

  // The instrument's clock, where it is known.
  long long Clock() const { return begun + difference.value_or(0); }
};

class KeptReadings {
 public:
  // Within Read.
  explicit KeptReadings(Database& database);

  // In the order in which they were begun.
  const std::vector<KeptReading>& Of(long long instrument) const;
  // The instrument that was read last at a place, and never again, before another one came there.
  struct Predecessor {
    long long instrument = 0;
    long long last = 0;  // begin of its last reading there
  };
  std::optional<Predecessor> Before(long long instrument, std::size_t place) const;
  // "tcp:gateway:4001, number 5".
  const std::string& NameOf(std::size_t place) const { return places_[place]; }

 private:
  struct Stay {
    long long instrument = 0;
    long long first = 0;
    long long last = 0;
  };
  void Add(long long instrument, const KeptReading& reading);

  std::map<long long, std::vector<KeptReading>> readings_;  // by instrument
  std::vector<std::string> places_;
  std::vector<std::vector<Stay>> stays_;  // of each place
};

}  // namespace host
