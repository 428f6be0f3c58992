// Gathers what a run brings and shows it at its end.
//
// A section may come in parts: what was asked for once more comes later. The rows of an archive are
// put into the order of their dates; others stay as they came. A database that comes again replaces
// the former when it is at least as complete.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/output/field_view.h"
#include "host/output/gathered_run.h"
#include "host/reading/run_listener.h"

namespace host {

class Gatherer final : public RunListener {
 public:
  explicit Gatherer(const UnitChoice& units) : view_(units) {}
  // Documents show the run in the order in which they were added, the later ones also when an
  // earlier one throws. document must outlive it.
  void Add(Document& document) { documents_.emplace_back(document); }
  void Add(std::unique_ptr<Document> document);

  void BeginRun(const Run& run) override;
  void BeginSection(const Section& section) override;
  void AddRow(const Section& section, const Cells& cells) override;
  void EndRun(const RunEnd& end) override;

 private:
  void Renew(GatheredSection& database, const Section& section, Cells cells) const;
  void Finish(GatheredSection& gathered) const;
  void ShowAll() const;

  FieldView view_;
  std::vector<std::unique_ptr<Document>> owned_;
  std::vector<std::reference_wrapper<Document>> documents_;
  GatheredRun run_;
  std::map<std::string, std::size_t> places_;  // in run_.sections, by GatheringKey
  std::size_t open_ = 0;                       // place of the section that is coming
  bool again_ = false;                         // it came before
};

}  // namespace host
