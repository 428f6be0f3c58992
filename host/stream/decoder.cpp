#include "host/stream/decoder.h"

#include <array>
#include <cstring>
#include <string_view>
#include <utility>

#include "host/stream/code_page.h"

namespace host {
namespace {

constexpr std::size_t kText = RecordReader::kText;
constexpr std::array<std::size_t, 6> kTitleFields = {1, kText, kText, kText, kText, sizeof(TAVDT)};
constexpr std::array<std::size_t, 7> kHeaderFields = {kText, 1, 1, kText, 1, kText, kText};

constexpr std::string_view kTitleKinds = "OHDMSB";
constexpr unsigned char kRowMarker = 'g';
constexpr unsigned char kEndMarker = 's';

std::string TextOf(const Bytes& value) {
  return Utf8FromCp1251({reinterpret_cast<const char*>(value.data()), value.size()});
}

bool IsTitleKind(unsigned char byte) {
  return kTitleKinds.find(static_cast<char>(byte)) != std::string_view::npos;
}

Title TitleOf(const std::vector<Bytes>& values) {
  Title title{static_cast<char>(values[0][0]),
              TextOf(values[1]),
              TextOf(values[2]),
              TextOf(values[3]),
              TextOf(values[4]),
              {}};
  std::memcpy(&title.time, values[5].data(), sizeof title.time);
  return title;
}

Column ColumnOf(const std::vector<Bytes>& values) {
  return {TextOf(values[0]), static_cast<char>(values[1][0]), values[2][0],
          TextOf(values[3]), static_cast<char>(values[4][0]), TextOf(values[5]),
          TextOf(values[6])};
}

}  // namespace

RecordReader::Progress RecordReader::Take(ByteView piece) {
  const std::size_t field = fields_[values_.size()];
  if (field == kText && !textLength_) {
    if (piece.size() != 1) return Progress::kBroken;
    textLength_ = piece[0];
    return Progress::kMore;
  }
  if (piece.size() != (field == kText ? *textLength_ : field)) return Progress::kBroken;
  values_.emplace_back(piece.begin(), piece.end());
  textLength_.reset();
  return values_.size() == fields_.size() ? Progress::kDone : Progress::kMore;
}

void Decoder::Take(ByteView piece) {
  switch (state_) {
    case State::kOutside:
      return TakeOutside(piece);
    case State::kColumns:
      return TakeAmongColumns(piece);
    case State::kRow:
      return TakeAmongRows(piece);
    case State::kTitle:
    case State::kHeader:
      return TakeRecordPiece(piece);
  }
}

void Decoder::StartRecord(State state, std::span<const std::size_t> fields, ByteView first) {
  state_ = state;
  record_ = RecordReader(fields);
  recordPieces_.clear();
  TakeRecordPiece(first);
}

void Decoder::TakeRecordPiece(ByteView piece) {
  recordPieces_.emplace_back(piece.begin(), piece.end());
  const RecordReader::Progress progress = record_.Take(piece);
  if (progress == RecordReader::Progress::kMore) return;
  if (progress == RecordReader::Progress::kBroken) return GiveUpRecord();
  if (state_ == State::kTitle) {
    section_ = {TitleOf(record_.Values()), {}, {}};
    begun_ = false;
  } else {
    section_.columns.push_back(ColumnOf(record_.Values()));
  }
  state_ = State::kColumns;
}

// The first piece did not begin a record after all, or the record was left unfinished: the pieces
// after it are looked at anew.
void Decoder::GiveUpRecord() {
  ++ignored_;
  state_ = state_ == State::kTitle ? State::kOutside : State::kColumns;
  const std::vector<Bytes> pieces = std::exchange(recordPieces_, {});
  for (std::size_t i = 1; i < pieces.size(); ++i) Take(pieces[i]);
}

bool Decoder::TakeMarkerOrTitle(ByteView piece) {
  if (piece.size() != 1) return false;
  if (piece[0] == kRowMarker && state_ != State::kOutside) {
    StartRow();
  } else if (piece[0] == kEndMarker && state_ != State::kOutside) {
    EndSection();
  } else if (IsTitleKind(piece[0])) {
    EndSection();
    StartRecord(State::kTitle, kTitleFields, piece);
  } else {
    return false;
  }
  return true;
}

void Decoder::TakeOutside(ByteView piece) {
  if (TakeMarkerOrTitle(piece)) return;
  // A failed read may end a section that it never began.
  const bool lateEnd = piece.size() == 1 && piece[0] == kEndMarker;
  if (!lateEnd && !piece.empty()) ++ignored_;
}

void Decoder::TakeAmongColumns(ByteView piece) {
  if (TakeMarkerOrTitle(piece) || piece.empty()) return;
  if (piece.size() == 1) {
    StartRecord(State::kHeader, kHeaderFields, piece);
  } else if (piece.size() == 2 && section_.columns.empty() && !section_.announced) {
    section_.announced = piece[0] + 256U * piece[1];
  } else {
    ++ignored_;
  }
}

void Decoder::TakeAmongRows(ByteView piece) {
  if (TakeMarkerOrTitle(piece)) return;
  if (rowOpen_) {
    row_.insert(row_.end(), piece.begin(), piece.end());
  } else if (!piece.empty()) {
    ++ignored_;
  }
}

void Decoder::StartRow() {
  BeginOnce();
  EndRow();
  rowOpen_ = true;
  state_ = State::kRow;
}

void Decoder::EndRow() {
  // A marker whose row never came tells nothing.
  if (rowOpen_ && !row_.empty()) listener_.AddRow(section_, row_);
  rowOpen_ = false;
  row_.clear();
}

void Decoder::BeginOnce() {
  if (!begun_) listener_.Begin(section_);
  begun_ = true;
}

void Decoder::EndSection() {
  if (state_ == State::kOutside || state_ == State::kTitle) return;
  BeginOnce();
  EndRow();
  listener_.End(section_);
  state_ = State::kOutside;
}

void Decoder::Pause() {
  const std::size_t width = RowWidth(section_);
  if (state_ == State::kRow && !HasUndescribedColumns(section_) && width > 0 &&
      row_.size() >= width) {
    EndRow();
  }
}

void Decoder::Finish() {
  EndSection();
  state_ = State::kOutside;
}

}  // namespace host
