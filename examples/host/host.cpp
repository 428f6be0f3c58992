// The smallest complete host: loads the driver, reads an instrument on a COM port and prints its
// current values and the hours of the last half day.
//
//   mingw:                       i686-w64-mingw32-g++ -std=c++17 -Iinclude -static host.cpp
//   the platform's own compiler: cl /std:c++17 /Iinclude host.cpp
//   then, beside TKSplDrv.dll:   host.exe COM3 1
//
// The second argument is the driver kind: 1 for the older protocol, 2 for K7.
#include <windows.h>
// The system's header comes first here, but need not.
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "TKSplDrv/driver.h"

namespace {

// The serial line. Every operation answers as the driver expects it; none throws.
class ComPort final : public HostPort {
 public:
  explicit ComPort(const char* name) {
    char path[64] = "\\\\.\\";
    lstrcpynA(path + 4, name, sizeof path - 4);
    line_ = CreateFileA(path, GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  }
  ~ComPort() { CloseHandle(line_); }

  bool IsOpen() const { return line_ != INVALID_HANDLE_VALUE; }

  // 5 once at the start, 3 before a request: drop what came in earlier.
  bool Control(int) override { return PurgeComm(line_, PURGE_RXCLEAR) != 0; }

  bool SetTimeouts(unsigned readInterval, unsigned readPerByte, unsigned readConstant,
                   unsigned writePerByte, unsigned writeConstant) override {
    timeouts_ = {readInterval, readPerByte, readConstant, writePerByte, writeConstant};
    return SetCommTimeouts(line_, &timeouts_) != 0;
  }

  void Reserved2() override {}

  bool SetLine(int, int, int baud, int dataBits, int parity, int stopBits) override {
    DCB settings = {};
    settings.DCBlength = sizeof settings;
    if (!GetCommState(line_, &settings)) return false;
    settings.BaudRate = static_cast<DWORD>(baud);
    settings.ByteSize = static_cast<BYTE>(dataBits);
    settings.Parity = static_cast<BYTE>(parity);
    settings.StopBits = static_cast<BYTE>(stopBits);
    settings.fParity = parity != NOPARITY;
    return SetCommState(line_, &settings) != 0;
  }

  void Reserved4() override {}

  bool SetBuffers(int input, int output) override {
    return SetupComm(line_, static_cast<DWORD>(input), static_cast<DWORD>(output)) != 0;
  }

  // Waits at most this long for all the bytes.
  int Read(unsigned timeoutMs, unsigned count, void* destination) override {
    COMMTIMEOUTS timeouts = timeouts_;
    timeouts.ReadIntervalTimeout = 0;
    timeouts.ReadTotalTimeoutMultiplier = 0;
    timeouts.ReadTotalTimeoutConstant = timeoutMs;
    DWORD received = 0;
    SetCommTimeouts(line_, &timeouts);
    if (!ReadFile(line_, destination, count, &received, nullptr)) return 0;
    return static_cast<int>(received);
  }

  int Write(const void* data, unsigned length) override {
    DWORD written = 0;
    if (!WriteFile(line_, data, length, &written, nullptr)) return 0;
    return static_cast<int>(written);
  }

 private:
  HANDLE line_;
  COMMTIMEOUTS timeouts_ = {};
};

struct Column {
  char name[16];
  char type;
  unsigned width;
};

void PrintCell(const Column& column, const unsigned char* bytes) {
  float single = 0;
  double number = 0;
  int integer = 0;
  unsigned short word = 0;
  TAVDT time = {};
  switch (column.type) {
    case 'f':
      memcpy(&single, bytes, sizeof single);
      printf("\t%g", static_cast<double>(single));
      break;
    case 'd':
      memcpy(&number, bytes, sizeof number);
      printf("\t%g", number);
      break;
    case 'L':
      memcpy(&integer, bytes, sizeof integer);
      printf("\t%d", integer);
      break;
    case 'S':
      memcpy(&word, bytes, sizeof word);
      printf("\t%d", word);
      break;
    case 'B':
      printf("\t%d", bytes[0]);
      break;
    case 't':
      memcpy(&time, bytes, sizeof time);
      printf("\t%04d-%02d-%02d %02d:%02d:%02d", time.year, time.month, time.day, time.hour,
             time.minute, time.second);
      break;
    default:
      printf("\t%.*s", static_cast<int>(column.width), reinterpret_cast<const char*>(bytes));
  }
}

// Follows the output stream piece by piece and prints each row as soon as it is whole. Runs in the
// driver's reading thread.
class RowPrinter final : public HostStream {
 public:
  bool Message(const char* value, const char* subject, unsigned) override {
    fprintf(stderr, "%s: %s\n", subject, value);
    return true;
  }

  bool Write(const void* data, unsigned length) override {
    const auto* bytes = static_cast<const unsigned char*>(data);
    switch (record_) {
      case Record::kNone:
        Begin(bytes, length);
        break;
      case Record::kTitle:
        TakeTitle(bytes, length);
        break;
      case Record::kColumn:
        TakeColumn(bytes, length);
        break;
      case Record::kRow:
        TakeRow(bytes, length);
        break;
    }
    return true;
  }

  int Rows() const { return rows_; }

 private:
  enum class Record { kNone, kTitle, kColumn, kRow };

  void Enter(Record record) {
    record_ = record;
    piece_ = 0;
    filled_ = 0;
  }

  void Begin(const unsigned char* bytes, unsigned length) {
    if (length != 1) return;  // the number of columns
    if (bytes[0] == 'g') {
      if (!headed_) printf("\n");
      headed_ = true;
      Enter(Record::kRow);
    } else if (bytes[0] != 0 && strchr("OHDMSB", bytes[0]) != nullptr) {
      printf("\n== %c", bytes[0]);
      count_ = 0;
      width_ = 0;
      headed_ = false;
      Enter(Record::kTitle);
    } else if (bytes[0] != 's') {
      Enter(Record::kColumn);  // this was the length of its name
    }
  }

  // Four texts of two pieces each, then the time.
  void TakeTitle(const unsigned char* bytes, unsigned length) {
    ++piece_;
    if (piece_ % 2 == 0) printf(" %.*s", static_cast<int>(length), Text(bytes));
    if (piece_ < 9) return;
    printf("\n");
    Enter(Record::kNone);
  }

  // Name, type, width, and seven pieces that are not printed here.
  void TakeColumn(const unsigned char* bytes, unsigned length) {
    if (count_ == kMostColumns) count_ = 0;
    Column& column = list_[count_];
    ++piece_;
    if (piece_ == 1) {
      const unsigned kept = length < sizeof column.name ? length : sizeof column.name - 1;
      memcpy(column.name, bytes, kept);
      column.name[kept] = '\0';
      printf("\t%s", column.name);
    } else if (piece_ == 2) {
      column.type = static_cast<char>(bytes[0]);
    } else if (piece_ == 3) {
      column.width = bytes[0];
      width_ += column.width;
    } else if (piece_ == 10) {
      ++count_;
      Enter(Record::kNone);
    }
  }

  void TakeRow(const unsigned char* bytes, unsigned length) {
    for (unsigned i = 0; i < length && filled_ < sizeof row_; ++i) row_[filled_++] = bytes[i];
    if (filled_ < width_) return;
    const unsigned char* cell = row_;
    for (unsigned i = 0; i < count_; ++i) {
      PrintCell(list_[i], cell);
      cell += list_[i].width;
    }
    printf("\n");
    ++rows_;
    Enter(Record::kNone);
  }

  static const char* Text(const unsigned char* bytes) {
    return reinterpret_cast<const char*>(bytes);
  }

  static constexpr unsigned kMostColumns = 128;

  Record record_ = Record::kNone;
  unsigned piece_ = 0;
  Column list_[kMostColumns] = {};
  unsigned count_ = 0;
  unsigned width_ = 0;  // of a row, in bytes
  unsigned char row_[kMostColumns * 255];
  unsigned filled_ = 0;
  bool headed_ = false;  // the line of column names is complete
  int rows_ = 0;
};

SYSTEMTIME HoursAgo(unsigned hours) {
  SYSTEMTIME now;
  GetLocalTime(&now);
  FILETIME file;
  SystemTimeToFileTime(&now, &file);
  ULARGE_INTEGER ticks;
  ticks.LowPart = file.dwLowDateTime;
  ticks.HighPart = file.dwHighDateTime;
  ticks.QuadPart -= hours * 36000000000ULL;  // of 100 ns
  file.dwLowDateTime = ticks.LowPart;
  file.dwHighDateTime = ticks.HighPart;
  FileTimeToSystemTime(&file, &now);
  return now;
}

// Answers whether the reading went well. The driver object is gone afterwards.
bool Read(TavDrvV1* driver, int kind) {
  int baud = 0;
  int attempts = 3;
  driver->GetBaud(kind, 1, &baud);
  driver->SetupNumer('N', 1);  // network number of the instrument
  driver->SetupBaud(baud);
  driver->SetupParametr(1, sizeof attempts, &attempts);
  driver->SetupReadGroup('T', true);
  driver->SetupReadGroup('H', true);
  driver->SetupDateTime(HoursAgo(12), HoursAgo(0));
  bool good = driver->Start(kind) == 1;
  if (good) {
    WaitForSingleObject(driver->thread, INFINITE);
    good = driver->GetPr() == 101;
  }
  driver->Destroy(1);
  return good;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    printf("usage: host COMn KIND\n");
    return 2;
  }
  HMODULE library = LoadLibraryA("TKSplDrv.dll");
  void* address =
      library != nullptr ? reinterpret_cast<void*>(GetProcAddress(library, "LInit")) : nullptr;
  if (address == nullptr) {
    printf("TKSplDrv.dll cannot be loaded\n");
    return 1;
  }
  ComPort port(argv[1]);
  if (!port.IsOpen()) {
    printf("%s cannot be opened\n", argv[1]);
    return 1;
  }
  static RowPrinter stream;
  const auto init = reinterpret_cast<decltype(&LInit)>(address);
  TavDrvV1* driver = init(static_cast<HostStream*>(&stream), static_cast<HostPort*>(&port));
  const bool good = driver != nullptr && Read(driver, atoi(argv[2]));
  printf("\n%s, %d rows\n", good ? "read" : "failed", stream.Rows());
  FreeLibrary(library);
  return good ? 0 : 1;
}
