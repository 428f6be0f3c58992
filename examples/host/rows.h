// The output stream of a reading of hours, printed row by row.
#pragma once

#include <stdio.h>
#include <string.h>

#include "TKSplDrv/host.h"
#include "TKSplDrv/records.h"

template <class Value>
Value As(const char* bytes) {
  Value value;
  memcpy(&value, bytes, sizeof value);
  return value;
}

inline void PrintCell(tav::Type type, int width, const char* cell) {
  using tav::Type;
  printf("\t");
  if (type == Type::kFloat) printf("%g", static_cast<double>(As<float>(cell)));
  if (type == Type::kDouble) printf("%g", As<double>(cell));
  if (type == Type::kInt32) printf("%u", As<unsigned>(cell));
  if (type == Type::kInt16) printf("%d", As<unsigned short>(cell));
  if (type == Type::kByte) printf("%d", As<unsigned char>(cell));
  if (type == Type::kChars) printf("%.*s", width, cell);
  if (type != Type::kDateTime) return;
  const auto time = As<TAVDT>(cell);
  printf("%04d-%02d-%02d %02d:%02d", time.year, time.month, time.day, time.hour, time.minute);
}

// Puts the pieces of the stream together and prints what is whole. The driver's reading thread
// calls it.
class RowPrinter final : public HostStream {
 public:
  bool Message(const char* value, const char* subject, unsigned /*code*/) override {
    fprintf(stderr, "%s: %s\n", subject, value);
    return true;
  }

  bool Write(const void* data, unsigned length) override {
    const auto* bytes = static_cast<const char*>(data);
    // Between two records: the number of columns, which has two bytes, and the end of an archive.
    if (pieces_ == 0 && (length != 1 || *bytes == tav::kEndMarker)) return true;
    if (size_ + length > sizeof record_ || columns_ == kMostColumns) return false;
    memcpy(record_ + size_, bytes, length);
    size_ += length;
    ++pieces_;
    if (TakeRecord()) size_ = pieces_ = 0;
    return true;
  }

 private:
  static constexpr unsigned kMostColumns = 128;

  // Whether the record is whole: a row fills its columns, a title has 10 pieces, a column header
  // 11, of which the first is the length of its name.
  bool TakeRecord() {
    if (record_[0] == tav::kRowMarker) return size_ > width_ && PrintRow();
    const bool title = record_[0] == static_cast<char>(tav::TitleKind::kHourly);
    return title ? pieces_ == 10 && BeginTable() : pieces_ == 11 && AddColumn();
  }

  bool BeginTable() {
    printf("\n\n");
    columns_ = width_ = 0;
    return true;
  }

  bool AddColumn() {
    const int name = As<unsigned char>(record_);
    printf("\t%.*s", name, record_ + 1);
    types_[columns_] = As<tav::Type>(record_ + 1 + name);
    width_ += widths_[columns_] = As<unsigned char>(record_ + 2 + name);
    ++columns_;
    return true;
  }

  bool PrintRow() {
    const char* cell = record_ + 1;
    printf("\n");
    for (unsigned i = 0; i < columns_; cell += widths_[i++]) PrintCell(types_[i], widths_[i], cell);
    return true;
  }

  char record_[kMostColumns * 255];
  unsigned size_ = 0;
  unsigned pieces_ = 0;  // of the record so far
  tav::Type types_[kMostColumns];
  unsigned char widths_[kMostColumns];
  unsigned columns_ = 0;
  unsigned width_ = 0;  // of a row, in bytes
};
