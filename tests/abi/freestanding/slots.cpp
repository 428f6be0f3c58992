#include "tests/abi/freestanding/checks.h"
#include "tests/abi/freestanding/host_objects.h"

Callee SlotOf(const TavDrvV1* object, const char* name) {
  constexpr const char* kNames[] = {
      "GetName",   "GetBaud",       "CanReadGroup", "GetNumberLimit", "Start",
      "Stop",      "GetPr",         "SetupNumer",   "SetupReadGroup", "SetupDateTime",
      "SetupBaud", "SetupParametr", "Destroy"};
  unsigned slot = 0;
  while (!SameText(kNames[slot], name)) ++slot;
  const void* const* table = *reinterpret_cast<const void* const* const*>(object);
  return {name, table[slot], object, Convention::kThis};
}

namespace {

TavDrvV1* Create(StreamObject& stream, PortObject& port, unsigned misalignment) {
  const unsigned object = Call(Of("LInit", &LInit), Arguments(&stream, &port), misalignment);
  Check(object != 0, "LInit", "returns no object");
  return reinterpret_cast<TavDrvV1*>(object);
}

void CheckSetUp(TavDrvV1* driver) {
  char untouched[] = "untouched", name[32];
  int baud = 0, limit = 0, value = 42;
  driver->groupFlag[1] = 7;
  Expect({{SlotOf(driver, "GetName"), {5, untouched, 9}, 2},
          {SlotOf(driver, "GetName"), {2, name, 9}, 2},
          {SlotOf(driver, "GetBaud"), {2, 4, &baud}, 4},
          {SlotOf(driver, "CanReadGroup"), {1, Rubbish('H')}, 1},
          {SlotOf(driver, "CanReadGroup"), {1, Rubbish('P')}, 0},
          {SlotOf(driver, "CanReadGroup"), {1, Rubbish(0)}, 0},
          {SlotOf(driver, "GetNumberLimit"), {1, Rubbish('N'), &limit}, 1},
          {SlotOf(driver, "GetPr"), {}, 0},
          {SlotOf(driver, "Stop"), {}, 1},
          {SlotOf(driver, "SetupNumer"), {Rubbish('N'), 77}, 1},
          {SlotOf(driver, "SetupNumer"), {Rubbish('n'), 78}, 0},
          // Any non-zero byte is a true one, and nothing but the byte counts.
          {SlotOf(driver, "SetupReadGroup"), {Rubbish('H'), Rubbish(0xFF)}, 1},
          {SlotOf(driver, "SetupReadGroup"), {Rubbish('h'), Rubbish(0)}, 1},
          {SlotOf(driver, "SetupReadGroup"), {Rubbish('S'), Rubbish(2)}, 1},
          {SlotOf(driver, "SetupReadGroup"), {Rubbish('A'), Rubbish(1)}, 0},
          {SlotOf(driver, "SetupDateTime"),
           {0x907E0, 0x40000, 0x5000D, 9, 0xA07E0, 0x50001, 0x6000E, 0x1000A},
           1},
          {SlotOf(driver, "SetupBaud"), {9600}, 1},
          {SlotOf(driver, "SetupParametr"), {Rubbish(9), 4, &value}, 1},
          {SlotOf(driver, "SetupParametr"), {Rubbish(10), 4, &value}, 0}});
  Check(SameText(untouched, "untouched") && SameText(name, "Irvela K7"), "GetName", "wrong text");
  Check(baud == 19200 && limit == 255, "GetBaud, GetNumberLimit", "wrong number");
  Check(driver->numberN == 77 && driver->param[8] == 42, "SetupNumer, SetupParametr",
        "wrong field");
  Check(driver->dateFrom.wYear == 2016 && driver->dateFrom.wDay == 4 && driver->dateTo.wDay == 5 &&
            driver->dateTo.wMilliseconds == 1,
        "SetupDateTime", "wrong fields");
  const unsigned char* flags = driver->groupFlag;
  Check(flags[0] != 0 && flags[1] == 0 && flags[2] != 0, "SetupReadGroup", "wrong flags");
}

// Mode 3 reads nothing: its thread says that it starts and that it ends.
void CheckOneReading(unsigned misalignment) {
  StreamObject stream;
  PortObject port;
  TavDrvV1* driver = Create(stream, port, misalignment);
  CheckSetUp(driver);

  const Callee start = SlotOf(driver, "Start");
  port.answer = 0;
  Check(Call(start, Arguments(3), misalignment) == 0, "Start",
        "takes a refusal with rubbish for a consent");
  port.answer = 1;
  Check(Call(start, Arguments(3), misalignment) == 1, "Start", "wrong result");
  Check(port.setUpCalls == 1 + 4 && port.lineBaud == 9600, "Start", "wrong set-up of the port");
  while (!stream.ended) Sleep(1);

  // Destroyed and not freed, so that LFree has something to free.
  Check(Call(SlotOf(driver, "Destroy"), Arguments(0), misalignment) == Word(driver), "Destroy",
        "does not return the object's address");
  Check(Call(Of("LFree", &LFree), Arguments(driver), misalignment) == 1, "LFree", "wrong result");
}

void CheckDestroyWhileReading() {
  StreamObject stream;
  PortObject port;
  TavDrvV1* driver = Create(stream, port, 4);
  int attempts = 1000000;
  Expect({{SlotOf(driver, "SetupParametr"), {Rubbish(1), 4, &attempts}, 1}});
  Check(Call(SlotOf(driver, "Start"), Arguments(1), 4) == 1, "Start", "wrong result");
  while (port.reads == 0) Sleep(1);
  Call(SlotOf(driver, "Destroy"), Arguments(1), 4);
  const unsigned reads = port.reads;
  Sleep(100);
  Check(port.reads == reads && !stream.ended, "Destroy", "the reading thread goes on");
}

}  // namespace

void CheckSlots() {
  for (unsigned misalignment = 0; misalignment < 16; misalignment += 4) {
    CheckOneReading(misalignment);
  }
  CheckDestroyWhileReading();
  Expect({{Of("LFree", &LFree), {0}, 1}});
}
