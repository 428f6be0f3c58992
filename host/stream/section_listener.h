// Who is told what a stream holds.
#pragma once

#include "host/stream/cell.h"
#include "host/stream/section.h"

namespace host {

// A section is told as it comes in: its beginning when its columns are known, a row when it is
// complete, its end when no row can follow. What is told is valid during the call. Every section
// that begins ends, also when the stream breaks off or a listener throws.
class SectionListener {
 public:
  virtual ~SectionListener() = default;
  virtual void BeginSection(const Section& /*section*/) {}
  // cells: one per column, and one more for bytes that no column describes, see cell.h.
  virtual void AddRow(const Section& /*section*/, const Cells& /*cells*/) {}
  virtual void EndSection(const Section& /*section*/) {}
};

}  // namespace host
