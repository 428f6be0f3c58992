// The command line of irvela read.
#pragma once

#include <optional>
#include <string>

#include "host/cli/line_options.h"
#include "host/cli/pace_options.h"
#include "host/output/sinks.h"
#include "host/reading/search.h"
#include "host/reading/settings.h"
#include "host/store/remembered.h"

namespace host {

// What is read when no beginning is named.
inline constexpr int kDefaultDays = 3;

struct ReadOptions : LineChoice {
  ReadSettings settings;
  SearchOptions search;  // what is to be found out first
  Pace pace;             // of a continuous reading
  SinkOptions sinks;
  std::optional<Wish> wish;  // only what the store lacks is read
  std::string trace;         // file, or empty
  std::string driver;        // of the DLL, or empty
};

class ReadParser {
 public:
  // read must live as long as the parser, and the parser as long as the app that it is added to.
  explicit ReadParser(ReadOptions& read) : read_(read), line_(read), pace_(read.pace) {}
  void AddTo(CLI::App& app);
  // Once all is known. Throws UsageError or std::invalid_argument.
  void Finish();

 private:
  void AddReading(CLI::App& app);
  void AddWish(CLI::App& app);
  void FinishLine();
  void FinishKind();
  void FinishSpeed();
  void FinishPeriod();
  void FinishTimes();
  void FinishWish();

  ReadOptions& read_;
  LineOptions line_;
  PaceOptions pace_;
  // Texts that need a second look once all are known.
  std::string kind_ = "auto";
  std::string speed_;
  std::string patience_ = "2m";
  std::string clockWarning_ = "2m";
  std::string from_;
  std::string to_;
  CLI::Option* groups_ = nullptr;
  CLI::Option* askAgain_ = nullptr;
  std::optional<std::string> fill_;  // the order's name, or empty
  bool sinceLast_ = false;
  Wish wish_;
};

}  // namespace host
