// Finds sections in the driver's output stream.
//
// The stream has no lengths of its own for most of its records; what tells them apart is where one
// write call ends and the next begins. Each call is one piece:
//
//   title    kind letter (1 byte), four texts, date-time (7 bytes)
//   count    number of columns (2 bytes), before the first column header, in some tables only
//   header   text, type (1), width (1), text, role (1), text, text
//   marker   1 byte, before a row or at the end of a section
//   row      one or more pieces until the next marker or title
//
// where a text is its length (1 byte) and its characters, two pieces even when it is empty. Neither
// the end marker nor any of the announced columns needs to come. An empty piece in a row says that
// something of it was lost: the pieces up to its end can't be told apart and are left out.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "host/stream/section_listener.h"

namespace host {

// Collects the pieces of a record whose fields are known: fixed sizes, or kText.
class RecordReader {
 public:
  static constexpr std::size_t kText = 0;
  enum class Progress { kMore, kDone, kBroken };

  explicit RecordReader(std::span<const std::size_t> fields) : fields_(fields) {}
  Progress Take(ByteView piece);
  const std::vector<Bytes>& Values() const { return values_; }

 private:
  std::span<const std::size_t> fields_;
  std::vector<Bytes> values_;
  std::optional<std::size_t> textLength_;
};

// What a stream held so far.
struct StreamCounts {
  std::size_t sections = 0;
  std::size_t rows = 0;
  std::size_t ignored = 0;  // pieces that had no meaning where they stood
};

class Decoder {
 public:
  // More than any instrument has; headers after them have no meaning, nor have those of columns
  // without a byte. What a row costs would else have no bound in what the row brings.
  static constexpr std::size_t kMostColumns = 1024;

  // listener must outlive the decoder.
  explicit Decoder(SectionListener& listener) : listener_(listener) {}

  // One write call.
  void Take(ByteView piece);
  // Something else than a write call came in: a row that has all its bytes is complete. Without
  // this call it is complete when the next piece shows it.
  void Pause();
  // The stream has ended: what is complete enough to be told is told.
  void Finish();
  const StreamCounts& Counts() const { return counts_; }

 private:
  enum class State { kOutside, kTitle, kColumns, kHeader, kRow };

  void TakeRecordPiece(ByteView piece);
  void StartRecord(State state, std::span<const std::size_t> fields, ByteView first);
  void GiveUpRecord();
  void TakeOutside(ByteView piece);
  void TakeAmongColumns(ByteView piece);
  void TakeAmongRows(ByteView piece);
  bool TakeMarkerOrTitle(ByteView piece);
  void TakeRecord();
  void StartRow();
  void EndRow();
  void EndSection();
  void BeginOnce();

  SectionListener& listener_;
  State state_ = State::kOutside;
  RecordReader record_{{}};
  std::vector<Bytes> recordPieces_;
  Section section_;
  std::size_t rowWidth_ = 0;
  bool begun_ = false;  // the listener knows the section
  bool rowOpen_ = false;
  bool rowBroken_ = false;
  Bytes row_;
  Cells cells_;
  StreamCounts counts_;
};

}  // namespace host
