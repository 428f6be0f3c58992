#include "host/stream/decoder.h"

#include <array>
#include <cstring>
#include <utility>

#include "host/stream/code_page.h"

namespace host {
namespace {

constexpr std::size_t kText = RecordReader::kText;
constexpr std::array<std::size_t, 6> kTitleFields = {1, kText, kText, kText, kText, sizeof(TAVDT)};
constexpr std::array<std::size_t, 7> kHeaderFields = {kText, 1, 1, kText, 1, kText, kText};

std::string TextOf(const Bytes& value) {
  return Utf8FromCp1251({reinterpret_cast<const char*>(value.data()), value.size()});
}

bool IsMarker(ByteView piece, char marker) {
  return piece.size() == 1 && piece[0] == static_cast<unsigned char>(marker);
}

Title TitleOf(const std::vector<Bytes>& values) {
  Title title{static_cast<tav::TitleKind>(values[0][0]),
              TextOf(values[1]),
              TextOf(values[2]),
              TextOf(values[3]),
              TextOf(values[4]),
              {}};
  std::memcpy(&title.time, values[5].data(), sizeof title.time);
  return title;
}

Column ColumnOf(const std::vector<Bytes>& values) {
  return {TextOf(values[0]), static_cast<tav::Type>(values[1][0]), values[2][0],
          TextOf(values[3]), static_cast<tav::Role>(values[4][0]), TextOf(values[5]),
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
  TakeRecord();
  state_ = State::kColumns;
}

void Decoder::TakeRecord() {
  if (state_ == State::kTitle) {
    section_ = {TitleOf(record_.Values()), {}, {}};
    rowWidth_ = 0;
    begun_ = false;
    return;
  }
  Column column = ColumnOf(record_.Values());
  if (column.width == 0 || section_.columns.size() == kMostColumns) {
    ++counts_.ignored;
    return;
  }
  rowWidth_ += column.width;
  section_.columns.push_back(std::move(column));
}

// The first piece did not begin a record after all, or the record was left unfinished: the pieces
// after it are looked at anew.
void Decoder::GiveUpRecord() {
  ++counts_.ignored;
  state_ = state_ == State::kTitle ? State::kOutside : State::kColumns;
  const std::vector<Bytes> pieces = std::exchange(recordPieces_, {});
  for (std::size_t i = 1; i < pieces.size(); ++i) Take(pieces[i]);
}

bool Decoder::TakeMarkerOrTitle(ByteView piece) {
  if (piece.size() != 1) return false;
  if (IsMarker(piece, tav::kRowMarker) && state_ != State::kOutside) {
    StartRow();
  } else if (IsMarker(piece, tav::kEndMarker) && state_ != State::kOutside) {
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
  if (!IsMarker(piece, tav::kEndMarker) && !piece.empty()) ++counts_.ignored;
}

void Decoder::TakeAmongColumns(ByteView piece) {
  if (TakeMarkerOrTitle(piece) || piece.empty()) return;
  if (piece.size() == 1) {
    StartRecord(State::kHeader, kHeaderFields, piece);
  } else if (piece.size() == 2 && section_.columns.empty() && !section_.announced) {
    section_.announced = piece[0] + 256U * piece[1];
  } else {
    ++counts_.ignored;
  }
}

void Decoder::TakeAmongRows(ByteView piece) {
  if (TakeMarkerOrTitle(piece)) return;
  if (rowOpen_) {
    rowBroken_ = rowBroken_ || piece.empty();
    if (!rowBroken_) row_.insert(row_.end(), piece.begin(), piece.end());
  } else if (!piece.empty()) {
    ++counts_.ignored;
  }
}

void Decoder::StartRow() {
  BeginOnce();
  EndRow();
  rowOpen_ = true;
  rowBroken_ = false;
  state_ = State::kRow;
}

// The listener may throw: what it was told is never told again.
void Decoder::EndRow() {
  if (!std::exchange(rowOpen_, false)) return;
  if (!row_.empty()) {  // a marker whose row never came tells nothing
    DecodeRow(section_, row_, cells_);
    row_.clear();
    ++counts_.rows;
    listener_.AddRow(section_, cells_);
  }
}

void Decoder::BeginOnce() {
  if (std::exchange(begun_, true)) return;
  ++counts_.sections;
  listener_.BeginSection(section_);
}

void Decoder::EndSection() {
  if (state_ == State::kOutside || state_ == State::kTitle) return;
  BeginOnce();
  EndRow();
  state_ = State::kOutside;
  listener_.EndSection(section_);
}

void Decoder::Pause() {
  if (state_ == State::kRow && !HasUndescribedColumns(section_) && rowWidth_ > 0 &&
      row_.size() >= rowWidth_) {
    EndRow();
  }
}

void Decoder::Finish() {
  EndSection();
  state_ = State::kOutside;
}

}  // namespace host
