#include "tests/abi/freestanding/checks.h"
#include "tests/abi/freestanding/host_objects.h"

// The imported constructor's address: the language has no way to take it.
extern "C" const void* const constructorImport __asm__("__imp_??0TavDrvV1@@QAE@PAX0@Z");

namespace {

// A host's own driver: it brings slots 0 to 5, the rest comes from the DLL.
class OwnDriver final : public TavDrvV1 {
 public:
  OwnDriver(void* out, void* line) : TavDrvV1(out, line) {}
  unsigned GetName(int, char*, int) override { return 1; }
  unsigned GetBaud(int, int, int*) override { return 0; }
  unsigned CanReadGroup(int, char) override { return 0; }
  unsigned GetNumberLimit(int, char, int*) override { return 0; }
  unsigned Start(int) override { return 0; }
  unsigned Stop() override { return TavDrvV1::Stop(); }
};

static_assert(sizeof(OwnDriver) == 333);

const void* volatile threadArgument = nullptr;

unsigned long __stdcall OwnRoutine(void* driver) {
  threadArgument = driver;
  return 5;
}

void CheckThread(TavDrvV1& driver) {
  // A cast chooses the overload that is no slot.
  const Callee start = Of("Start(routine)", driver,
                          static_cast<unsigned (TavDrvV1::*)(TavThreadRoutine)>(&TavDrvV1::Start));
  const Callee isStop = Of("IsStop", driver, &TavDrvV1::IsStop);
  const Callee close = Of("Close", driver, &TavDrvV1::Close);
  const Arguments routine(reinterpret_cast<const void*>(&OwnRoutine));
  Expect({{close, {}, 1}, {Of("Kill", driver, &TavDrvV1::Kill), {}, 1}});
  Check(Call(start, routine, 4) == 300, "Start(routine)", "wrong result");
  WaitForSingleObject(driver.thread, 10000);
  Check(threadArgument == &driver, "Start(routine)", "the thread gets another argument");
  Expect({{isStop, {}, 0},
          {SlotOf(&driver, "Stop"), {}, 1},
          {isStop, {}, 1},
          {close, {}, 0},
          {start, routine, 0}});
}

void CheckProgress(TavDrvV1& driver) {
  driver.prStep = 12.5F;
  driver.SetPr(0);
  driver.IncPr(3);
  driver.InertPr();
  Check(driver.progress == -37.5F, "SetPr, IncPr, InertPr", "wrong progress");
  const Callee readStop = Of("ReadStop", driver, &TavDrvV1::ReadStop);
  Expect({{readStop, {Rubbish(0)}, 1},
          {SlotOf(&driver, "GetPr"), {}, Word(-37)},
          {readStop, {Rubbish(2)}, 1},
          {SlotOf(&driver, "GetPr"), {}, 101}});
}

// The host's answer is one byte; what the driver makes of it is 1 or 0 (2 for a message).
void CheckAnswers(TavDrvV1& driver, StreamObject& stream) {
  const TAVDT time{2016, 9, 4, 13, 5, 9};
  constexpr unsigned char kAnswers[] = {0, 1, 2, 0xFF};
  for (const unsigned char answer : kAnswers) {
    stream.answer = answer;
    const unsigned written = answer != 0 ? 1 : 0;
    const unsigned said = answer != 0 ? 1 : 2;
    const Arguments date(Half(2016), Half(3), Half(5), Half(7));
    const Arguments column("V1", Rubbish('d'), Rubbish(8), "u", Rubbish('i'), 0, 0);
    const Arguments title(Rubbish('H'), "a", "b", "c", "d", &time);
    Expect({{Of("MessageDT", driver, &TavDrvV1::MessageDT), date, said},
            {Of("MessageTav", driver, &TavDrvV1::MessageTav), {0, "a", "b", 1}, said},
            {Of("WriteDataRec", driver, &TavDrvV1::WriteDataRec), {&time, 7}, written},
            {Of("WriteTavRec", driver, &TavDrvV1::WriteTavRec), {"text"}, written},
            {Of("WriteShapkaRec", driver, &TavDrvV1::WriteShapkaRec), column, written},
            {Of("WriteTavTitle", driver, &TavDrvV1::WriteTavTitle), title, written}});
    Check(stream.lastCode == 1, "MessageTav", "loses the code");
    Check(stream.longestMessage == 13, "MessageDT", "takes the rubbish for the date");
  }
  Expect({{Of("WritePort", driver, &TavDrvV1::WritePort), {0, "123", 3}, 3}});
}

}  // namespace

void CheckOwnClass() {
  alignas(16) static unsigned char place[sizeof(OwnDriver)];
  StreamObject stream;
  PortObject port;
  Expect({{{"constructor", constructorImport, place, Convention::kThis},
           {&stream, &port},
           Word(place)}});

  auto* driver = new (place) OwnDriver(&stream, &port);
  Check(driver->param[0] == 1 && driver->idle == 1 && driver->stopRequest == 1, "own class",
        "wrong fields");
  Expect({{SlotOf(driver, "GetName"), {0, 0, 0}, 1}, {SlotOf(driver, "SetupBaud"), {4800}, 1}});
  Check(driver->baud == 4800, "own class", "inherited slots fail");
  CheckThread(*driver);
  CheckProgress(*driver);
  CheckAnswers(*driver, stream);
  Check(Call(SlotOf(driver, "Destroy"), Arguments(0), 4) == Word(place), "Destroy",
        "does not return the object's address");

  driver = new (place) OwnDriver(&stream, &port);
  driver->~OwnDriver();
}
