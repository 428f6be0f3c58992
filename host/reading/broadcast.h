// One listener that stands for several.
#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "host/reading/run_listener.h"

namespace host {

// Tells them in the order in which they were added. Where one throws, the later ones are not told,
// but for ends: these are told to all, and the first exception goes on.
class Broadcast final : public RunListener {
 public:
  void Add(std::unique_ptr<RunListener> listener) { listeners_.push_back(std::move(listener)); }

  void BeginRun(const Run& run) override;
  void AddPiece(ByteView piece) override;
  void BeginSection(const Section& section) override;
  void AddRow(const Section& section, const Cells& cells) override;
  void EndSection(const Section& section) override;
  void Tell(const Message& message) override;
  void ShowProgress(const Progress& progress) override;
  void Keep() override;
  void EndRun(const RunEnd& end) override;

 private:
  void TellAll(const std::function<void(RunListener&)>& tell);

  std::vector<std::unique_ptr<RunListener>> listeners_;
};

}  // namespace host
