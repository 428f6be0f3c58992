// A listener that passes everything to another one. Derive from it and override what is to differ.
#pragma once

#include "host/reading/run_listener.h"

namespace host {

class WrappedListener : public RunListener {
 public:
  // to must outlive it.
  explicit WrappedListener(RunListener& to) : to_(to) {}

  void BeginRun(const Run& run) override { to_.BeginRun(run); }
  void AddPiece(ByteView piece) override { to_.AddPiece(piece); }
  void BeginSection(const Section& section) override { to_.BeginSection(section); }
  void AddRow(const Section& section, const Cells& cells) override { to_.AddRow(section, cells); }
  void EndSection(const Section& section) override { to_.EndSection(section); }
  void Tell(const Message& message) override { to_.Tell(message); }
  void ShowProgress(const Progress& progress) override { to_.ShowProgress(progress); }
  void Keep() override { to_.Keep(); }
  void EndRun(const RunEnd& end) override { to_.EndRun(end); }

 protected:
  RunListener& Wrapped() { return to_; }

 private:
  RunListener& to_;
};

}  // namespace host
