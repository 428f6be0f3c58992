// The concrete driver: answers the host's questions, opens the line and starts the reading thread.
#pragma once

#include "TKSplDrv/driver.h"

#if defined(_WIN32)
#pragma pack(push, 1)
#endif

class TKSplDrv final : public TavDrvV1 {
 public:
  using TavDrvV1::TavDrvV1;

  unsigned GetName(int kind, char* text, int language) override;
  unsigned GetBaud(int kind, int index, int* baud) override;
  unsigned CanReadGroup(int kind, char letter) override;
  unsigned GetNumberLimit(int kind, char letter, int* limit) override;
  unsigned Start(int mode) override;
  unsigned Stop() override;
  void* Destroy(unsigned flags) override;

  int mode = 0;  // the kind given to Start: a tav::Mode, or one that no protocol serves

 private:
  bool OpenPort();
};

#if defined(_WIN32)
#pragma pack(pop)
#endif

// The routine of the reading thread; driver is a TKSplDrv.
unsigned long TAV_STDCALL PollThread(void* driver);
