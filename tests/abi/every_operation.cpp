// Uses every exported operation once, each in a function of its own, and defines nothing else: its
// undefined symbols are the names under which a compiler asks the library for them. Compiled by
// both compilers, and for a host with plain types, it gives the names of library/TKSplDrv.def.
#include "tests/abi/interface.h"

namespace {

char text[] = "";

// The constructor and the destructor are reached from a host's own class.
class HostDriver : public TavDrvV1 {
 public:
  __attribute__((always_inline)) HostDriver(void* out, void* line) : TavDrvV1(out, line) {}
  unsigned GetName(int, char*, int) override { return 0; }
  unsigned GetBaud(int, int, int*) override { return 0; }
  unsigned CanReadGroup(int, char) override { return 0; }
  unsigned GetNumberLimit(int, char, int*) override { return 0; }
  unsigned Start(int) override { return 0; }
  unsigned Stop() override { return 0; }
};

}  // namespace

inline void* operator new(decltype(sizeof 0), void* place) noexcept { return place; }

#define USE extern "C" void

USE UseLInit(void** p) { *p = LInit(p, p); }
USE UseLFree(void* p) { LFree(p); }

USE UseConstruct(void* p) { new (p) HostDriver(p, p); }
USE UseDestruct(TavDrvV1* d) { d->TavDrvV1::~TavDrvV1(); }
USE UseStop(TavDrvV1* d) { d->TavDrvV1::Stop(); }
USE UseGetPr(TavDrvV1* d) { d->TavDrvV1::GetPr(); }
USE UseSetupNumer(TavDrvV1* d) { d->TavDrvV1::SetupNumer('N', 1); }
USE UseSetupReadGroup(TavDrvV1* d) { d->TavDrvV1::SetupReadGroup('H', true); }
USE UseSetupDateTime(TavDrvV1* d) { d->TavDrvV1::SetupDateTime({}, {}); }
USE UseSetupBaud(TavDrvV1* d) { d->TavDrvV1::SetupBaud(2400); }
USE UseSetupParametr(TavDrvV1* d) { d->TavDrvV1::SetupParametr(1, 4, d); }
#if !defined(PLAIN_TYPES)
USE UseDestroy(TavDrvV1* d) { d->TavDrvV1::Destroy(0); }
#endif

USE UseStart(TavDrvV1* d, TavThreadRoutine routine) { d->TavDrvV1::Start(routine); }
USE UseIsStop(TavDrvV1* d) { d->IsStop(); }
USE UseClose(TavDrvV1* d) { d->Close(); }
USE UseKill(TavDrvV1* d) { d->Kill(); }
USE UseReadStop(TavDrvV1* d) { d->ReadStop(true); }
USE UseSetPr(TavDrvV1* d) { d->SetPr(1); }
USE UseIncPr(TavDrvV1* d) { d->IncPr(1); }
USE UseInertPr(TavDrvV1* d) { d->InertPr(); }
USE UseMessageTav(TavDrvV1* d) { d->MessageTav(d, text, text, 0); }
USE UseMessageDT(TavDrvV1* d) { d->MessageDT(1, 2, 3, 4); }
USE UseWriteDataRec(TavDrvV1* d) { d->WriteDataRec(d, 1); }
USE UseWriteTavRec(TavDrvV1* d) { d->WriteTavRec(text); }
USE UseWriteShapkaRec(TavDrvV1* d) { d->WriteShapkaRec(text, 'f', 4, text, 'd', text, text); }
USE UseWriteTavTitle(TavDrvV1* d, TAVDT* t) { d->WriteTavTitle('H', text, text, text, text, t); }
USE UseWritePort(TavDrvV1* d) { d->WritePort(0, text, 0); }

USE UseSysToTav(TAVDT* t, SYSTEMTIME* s) { DateTimeSysToTav(t, s); }
USE UseTavToSys(TAVDT* t, SYSTEMTIME* s) { DateTimeTavToSys(s, t); }
USE UseGetAbsH() { GetAbsH(1, 2, 3, 4); }
USE UseGetAbsD() { GetAbsD(1, 2, 3); }
USE UseGetAbsM() { GetAbsM(1, 2); }
USE UseIncH(SYSTEMTIME* s) { DateTimeIncH(s); }
USE UseIncD(SYSTEMTIME* s) { DateTimeIncD(s); }
USE UseIncM(SYSTEMTIME* s) { DateTimeIncM(s); }
USE UseUrmToTav(TAVDT* t) { *t = DtUrmToTav(text); }
USE UseSysTimeToCharS(char* c, SYSTEMTIME* s) { SysTimeToCharS(c, s); }
USE UseIntToCharS(char* c) { IntToCharS(c, 1); }
USE UseUcToSChar(char* c) { UcToSChar(c, 1); }
USE UseAnsiToDouble(double* d) { *d = AnsiToDouble(text); }
USE UseStrExtr(char* c) { StrExtr(text, c, 0, 0); }
USE UseConvert(char* c) { ConvertCharDtoW(c, 0); }
USE UseMalloc(void** p) { *p = _malloc_(1); }
USE UseMallocFlag(void** p, unsigned char* failed) { *p = _malloc_(1, failed); }
USE UseFree(void* p) { _free_(p); }
