#include "TKSplDrv/driver.h"
#include "tests/abi/freestanding/checks.h"
#include "tests/abi/freestanding/host_objects.h"
#include "tests/abi/freestanding/probe.h"
#include "tests/abi/freestanding/system.h"

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

template <class Member>
Callee Of(const char* name, TavDrvV1& object, Member member) {
  const void* target = nullptr;
  static_assert(sizeof member == sizeof target);
  __builtin_memcpy(&target, &member, sizeof target);
  return {name, target, &object, Convention::kThis};
}

void CheckConstruction(unsigned char* place, StreamObject& stream, PortObject& port) {
  Expect({"constructor", constructorImport, place, Convention::kThis}, Arguments(&stream, &port),
         Word(place));
}

void CheckThread(TavDrvV1& driver) {
  // A cast chooses the overload that is no slot.
  const Callee start = Of("Start(routine)", driver,
                          static_cast<unsigned (TavDrvV1::*)(TavThreadRoutine)>(&TavDrvV1::Start));
  Expect(Of("Close", driver, &TavDrvV1::Close), Arguments(), 1);
  Expect(Of("Kill", driver, &TavDrvV1::Kill), Arguments(), 1);
  const auto routine = reinterpret_cast<const void*>(&OwnRoutine);
  Check(Call(start, Arguments(routine), 4) == 300, "Start(routine)", "wrong result");
  WaitForSingleObject(driver.thread, 10000);
  Check(threadArgument == &driver, "Start(routine)", "the thread gets another argument");
  Expect(start, Arguments(routine), 0);
  Expect(Of("IsStop", driver, &TavDrvV1::IsStop), Arguments(), 0);
  driver.Stop();
  Expect(Of("IsStop", driver, &TavDrvV1::IsStop), Arguments(), 1);
  Expect(Of("Close", driver, &TavDrvV1::Close), Arguments(), 0);
}

void CheckProgress(TavDrvV1& driver) {
  driver.prStep = 12.5F;
  driver.SetPr(0);
  driver.IncPr(3);
  Check(driver.GetPr() == 37, "IncPr", "wrong progress");
  driver.InertPr();
  Check(driver.progress == -37.5F, "InertPr", "wrong progress");
  Expect(Of("ReadStop", driver, &TavDrvV1::ReadStop), Arguments(Rubbish(0)), 1);
  Check(driver.GetPr() == -37, "ReadStop", "takes a failure with rubbish for a success");
  Expect(Of("ReadStop", driver, &TavDrvV1::ReadStop), Arguments(Rubbish(2)), 1);
  Check(driver.GetPr() == 101, "ReadStop", "takes a success for a failure");
}

// What the host answers is one byte; what the driver makes of it is 1 or 0 (2 for a message).
void CheckAnswers(TavDrvV1& driver, StreamObject& stream) {
  const TAVDT time{2016, 9, 4, 13, 5, 9};
  constexpr unsigned char kAnswers[] = {0, 1, 2, 0xFF};
  for (const unsigned char answer : kAnswers) {
    stream.answer = answer;
    const unsigned written = answer != 0 ? 1 : 0;
    Expect(Of("MessageTav", driver, &TavDrvV1::MessageTav), Arguments(0, "a", "b", 1),
           answer != 0 ? 1 : 2);
    Check(stream.lastCode == 1, "MessageTav", "loses the code");
    Expect(Of("MessageDT", driver, &TavDrvV1::MessageDT),
           Arguments(0xDEAD0000 | 2016, 0xDEAD0003, 0xDEAD0005, 0xDEAD0007), answer != 0 ? 1 : 2);
    Check(stream.lastMessageLength == 13, "MessageDT", "takes the rubbish for the date");
    Expect(Of("WriteDataRec", driver, &TavDrvV1::WriteDataRec), Arguments(&time, 7), written);
    Expect(Of("WriteTavRec", driver, &TavDrvV1::WriteTavRec), Arguments("text"), written);
    Expect(Of("WriteShapkaRec", driver, &TavDrvV1::WriteShapkaRec),
           Arguments("V1", Rubbish('d'), Rubbish(8), "u", Rubbish('i'), 0, 0), written);
    Expect(Of("WriteTavTitle", driver, &TavDrvV1::WriteTavTitle),
           Arguments(Rubbish('H'), "a", "b", "c", "d", &time), written);
  }
  Expect(Of("WritePort", driver, &TavDrvV1::WritePort), Arguments(0, "123", 3), 3);
}

}  // namespace

void CheckOwnClass() {
  alignas(16) static unsigned char place[sizeof(OwnDriver)];
  StreamObject stream;
  PortObject port;
  CheckConstruction(place, stream, port);

  auto* driver = new (place) OwnDriver(&stream, &port);
  Check(driver->GetName(0, nullptr, 0) == 1, "own class", "the table is not the host's");
  Check(driver->param[0] == 1 && driver->idle == 1 && driver->stopRequest == 1, "own class",
        "wrong fields");
  CheckThread(*driver);
  CheckProgress(*driver);
  CheckAnswers(*driver, stream);
  Check(driver->Destroy(0) == place, "Destroy", "does not answer the object's address");

  driver = new (place) OwnDriver(&stream, &port);
  Check(driver->SetupBaud(4800) == 1 && driver->baud == 4800, "own class", "inherited slots fail");
  driver->~OwnDriver();
}
