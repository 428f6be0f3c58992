// The smallest complete host: reads the hours of the last half day from the instrument with network
// number 1 and prints them. It hands two objects to the driver, the serial line (port_posix.h,
// port_windows.h) and the receiver of the output stream (rows.h).
//
//   Linux:   g++ -std=c++17 host.cpp -lTKSplDrv -o host
//   Windows: i686-w64-mingw32-g++ -std=c++17 -Iinclude -static host.cpp, or cl /std:c++17 /Iinclude
//   then:    ./host /dev/ttyUSB0 1, or beside TKSplDrv.dll host.exe COM3 1
//
// The second argument is the driver kind: 1 for the older protocol, 2 for K7.
#include <stdio.h>
#include <stdlib.h>
#include <time.h>

#include "TKSplDrv/driver.h"
#include "rows.h"
#if defined(_WIN32)
#include "port_windows.h"
#else
#include "port_posix.h"
#endif

namespace {

SYSTEMTIME HoursAgo(int hours) {
  const time_t moment = time(nullptr) - hours * 3600;
  const tm* local = localtime(&moment);
  SYSTEMTIME result = {};
  result.wYear = static_cast<unsigned short>(local->tm_year + 1900);
  result.wMonth = static_cast<unsigned short>(local->tm_mon + 1);
  result.wDay = static_cast<unsigned short>(local->tm_mday);
  result.wHour = static_cast<unsigned short>(local->tm_hour);
  return result;
}

// Returns whether the reading went well.
bool ReadHours(TavDrvV1& driver, int kind) {
  int baud = 0;
  int attempts = 3;
  if (driver.GetBaud(kind, 1, &baud) == 0) return false;  // no such kind
  driver.SetupNumer('N', 1);
  driver.SetupBaud(baud);
  driver.SetupParametr(static_cast<char>(tav::Parameter::kAttempts), sizeof attempts, &attempts);
  driver.SetupReadGroup(static_cast<char>(tav::ReadGroup::kHours), true);
  driver.SetupDateTime(HoursAgo(12), HoursAgo(0));
  if (driver.Start(kind) != 1) return false;
  int progress = 0;
  while ((progress = driver.GetPr()) >= 0 && progress <= 100) Pause(100);
  return progress > 100;
}

}  // namespace

int main(int argc, char** argv) {
  static RowPrinter stream;
  SerialPort port(argc == 3 ? argv[1] : "");
  const auto init = FindDriver();
  if (argc != 3 || !port.IsOpen() || init == nullptr) {
    fprintf(stderr, "usage: host PORT KIND; it needs a free port and the driver\n");
    return 2;
  }
  TavDrvV1* driver = init(static_cast<HostStream*>(&stream), static_cast<HostPort*>(&port));
  if (driver == nullptr) return 1;
  const bool good = ReadHours(*driver, atoi(argv[2]));
  printf("\n%s\n", good ? "read" : "failed");
  driver->Destroy(1);
  return good ? 0 : 1;
}
