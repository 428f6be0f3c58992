#include "TKSplDrv/driver.h"
#include "tests/abi/freestanding/checks.h"
#include "tests/abi/freestanding/host_objects.h"
#include "tests/abi/freestanding/probe.h"
#include "tests/abi/freestanding/system.h"

namespace {

enum Slot : unsigned {
  kGetName,
  kGetBaud,
  kCanReadGroup,
  kGetNumberLimit,
  kStart,
  kStop,
  kGetPr,
  kSetupNumer,
  kSetupReadGroup,
  kSetupDateTime,
  kSetupBaud,
  kSetupParametr,
  kDestroy
};

constexpr const char* kSlotNames[] = {
    "GetName",   "GetBaud",       "CanReadGroup", "GetNumberLimit", "Start",
    "Stop",      "GetPr",         "SetupNumer",   "SetupReadGroup", "SetupDateTime",
    "SetupBaud", "SetupParametr", "Destroy"};

Callee At(const TavDrvV1* object, Slot slot) {
  const void* const* table = *reinterpret_cast<const void* const* const*>(object);
  return {kSlotNames[slot], table[slot], object, Convention::kThis};
}

TavDrvV1* Create(StreamObject& stream, PortObject& port, unsigned misalignment) {
  const Callee init{"LInit", reinterpret_cast<const void*>(&LInit), nullptr, Convention::kC};
  auto* object = reinterpret_cast<TavDrvV1*>(Call(init, Arguments(&stream, &port), misalignment));
  Check(object != nullptr, "LInit", "answers no object");
  return object;
}

void Free(TavDrvV1* object, unsigned misalignment) {
  const Callee free{"LFree", reinterpret_cast<const void*>(&LFree), nullptr, Convention::kC};
  Check(Call(free, Arguments(object), misalignment) == 1, "LFree", "wrong result");
}

void CheckQuestions(TavDrvV1* driver) {
  char text[32] = "untouched";
  Expect(At(driver, kGetName), Arguments(5, text, 9), 2);
  Check(SameText(text, "untouched"), "GetName", "writes for an unknown kind");
  Expect(At(driver, kGetName), Arguments(2, text, 9), 2);
  Check(SameText(text, "Irvela K7"), "GetName", "wrong text");

  int number = 0;
  Expect(At(driver, kGetBaud), Arguments(2, 4, &number), 4);
  Check(number == 19200, "GetBaud", "wrong speed");
  Expect(At(driver, kCanReadGroup), Arguments(1, Rubbish('H')), 1);
  Expect(At(driver, kCanReadGroup), Arguments(1, Rubbish('P')), 0);
  Expect(At(driver, kCanReadGroup), Arguments(1, Rubbish(0)), 0);
  Expect(At(driver, kGetNumberLimit), Arguments(1, Rubbish('N'), &number), 1);
  Check(number == 255, "GetNumberLimit", "wrong limit");
  Expect(At(driver, kGetPr), Arguments(), 0);
}

void CheckReadGroups(TavDrvV1* driver) {
  struct Case {
    unsigned letter, on, result;
    bool set;  // letter H's flag, afterwards
  };
  // Any non-zero byte is a true one, and nothing but the byte counts.
  constexpr Case kCases[] = {{'H', 1, 1, true},  {'H', 0, 1, false},   {'H', 2, 1, true},
                             {'H', 0, 1, false}, {'H', 0xFF, 1, true}, {'A', 0, 0, true}};
  for (const Case& c : kCases) {
    Expect(At(driver, kSetupReadGroup), Arguments(Rubbish(c.letter), Rubbish(c.on)), c.result);
    Check((driver->groupFlag[0] != 0) == c.set, "SetupReadGroup", "wrong flag");
  }
}

void CheckSetUp(TavDrvV1* driver) {
  Expect(At(driver, kSetupNumer), Arguments(Rubbish('N'), 77), 1);
  Check(driver->numberN == 77, "SetupNumer", "wrong field");
  Expect(At(driver, kSetupNumer), Arguments(Rubbish('n'), 78), 0);

  const unsigned from[4] = {0x000907E0, 0x00040000, 0x0005000D, 0x00000009};
  const unsigned to[4] = {0x000A07E0, 0x00050001, 0x0006000E, 0x0001000A};
  Expect(At(driver, kSetupDateTime),
         Arguments(from[0], from[1], from[2], from[3], to[0], to[1], to[2], to[3]), 1);
  Check(driver->dateFrom.wYear == 2016 && driver->dateFrom.wDay == 4 && driver->dateTo.wDay == 5 &&
            driver->dateTo.wMilliseconds == 1,
        "SetupDateTime", "wrong fields");

  Expect(At(driver, kSetupBaud), Arguments(9600), 1);
  int value = 42;
  Expect(At(driver, kSetupParametr), Arguments(Rubbish(9), 4, &value), 1);
  Check(driver->param[8] == 42, "SetupParametr", "wrong field");
  Expect(At(driver, kSetupParametr), Arguments(Rubbish(10), 4, &value), 0);
}

// Mode 3 reads nothing: its thread says that it starts and that it ends.
void CheckOneReading(unsigned misalignment) {
  StreamObject stream;
  PortObject port;
  TavDrvV1* driver = Create(stream, port, misalignment);
  CheckQuestions(driver);
  CheckReadGroups(driver);
  CheckSetUp(driver);

  port.answer = 0;
  Check(Call(At(driver, kStart), Arguments(3), misalignment) == 0, "Start",
        "takes a refusal with rubbish for a consent");
  Check(port.setUpCalls == 1, "Start", "goes on after a refusal");
  port.answer = 1;
  Check(Call(At(driver, kStart), Arguments(3), misalignment) == 1, "Start", "wrong result");
  Check(port.setUpCalls == 5 && port.lineBaud == 9600, "Start", "wrong set-up of the port");
  while (!stream.ended) Sleep(1);
  Check(Call(At(driver, kStart), Arguments(3), misalignment) == 0, "Start", "reads twice");
  Expect(At(driver, kStop), Arguments(), 1);

  // Destroyed and not freed, so that LFree has something to free.
  const unsigned address = Word(driver);
  Check(Call(At(driver, kDestroy), Arguments(0), misalignment) == address, "Destroy",
        "does not answer the object's address");
  Free(driver, misalignment);
}

void CheckDestroyWhileReading(unsigned misalignment) {
  StreamObject stream;
  PortObject port;
  TavDrvV1* driver = Create(stream, port, misalignment);
  int attempts = 1000000;
  Call(At(driver, kSetupParametr), Arguments(Rubbish(1), 4, &attempts), misalignment);
  Check(Call(At(driver, kStart), Arguments(1), misalignment) == 1, "Start", "wrong result");
  while (port.reads == 0) Sleep(1);
  const unsigned address = Word(driver);
  Check(Call(At(driver, kDestroy), Arguments(1), misalignment) == address, "Destroy",
        "does not answer the object's address");
  const unsigned reads = port.reads;
  Sleep(100);
  Check(port.reads == reads && !stream.ended, "Destroy", "the reading thread goes on");
}

}  // namespace

void CheckSlots() {
  for (unsigned misalignment = 0; misalignment < 16; misalignment += 4) {
    CheckOneReading(misalignment);
  }
  CheckDestroyWhileReading(4);

  StreamObject stream;
  PortObject port;
  Free(Create(stream, port, 8), 12);
  Free(nullptr, 4);
}
