// A program built against the installed library: prints the driver's names.
#include <TKSplDrv/conversions.h>
#include <TKSplDrv/driver.h>

#include <cstdio>

int main() {
  TavDrvV1* driver = LInit(nullptr, nullptr);
  if (driver == nullptr) return 1;
  char name[32] = {};
  for (int kind = 1; kind <= 2; ++kind) {
    if (driver->GetName(kind, name, 9) != 2) return 1;
    std::printf("%s\n", name);
  }
  driver->Destroy(1);
  return GetAbsD(1, 1, 1) == 1 ? 0 : 1;
}
