// The interface as a host declares it that does not take our headers: flags are bool, texts and
// records plain pointers, and slot 12 is the class's virtual destructor. Compilers decorate these
// declarations with other names than ours; the DLL must have those too. Written by hand, from what
// the operations take and give, so that it checks the DLL's list of names.
#pragma once

#define DLL __declspec(dllimport)

struct _SYSTEMTIME {
  unsigned short wYear, wMonth, wDayOfWeek, wDay, wHour, wMinute, wSecond, wMilliseconds;
};
typedef _SYSTEMTIME SYSTEMTIME;

typedef unsigned long(__stdcall* TavThreadRoutine)(void* driver);

#pragma pack(push, 1)
struct TAVDT {
  unsigned short year;
  unsigned char month, day, hour, minute, second;
};

class DLL TavDrvV1 {
 public:
  TavDrvV1(void* stream, void* port);

  virtual unsigned GetName(int kind, char* text, int language) = 0;
  virtual unsigned GetBaud(int kind, int index, int* baud) = 0;
  virtual unsigned CanReadGroup(int kind, char letter) = 0;
  virtual unsigned GetNumberLimit(int kind, char letter, int* limit) = 0;
  virtual unsigned Start(int mode) = 0;
  virtual unsigned Stop() = 0;
  virtual int GetPr();
  virtual unsigned SetupNumer(char which, int value);
  virtual unsigned SetupReadGroup(char letter, bool on);
  virtual bool SetupDateTime(SYSTEMTIME from, SYSTEMTIME to);
  virtual bool SetupBaud(int baud);
  virtual unsigned SetupParametr(char index, int size, void* value);
  virtual ~TavDrvV1();

  unsigned Start(TavThreadRoutine routine);
  bool IsStop();
  unsigned Close();
  bool Kill();
  bool ReadStop(bool ok);

  void SetPr(int value);
  void IncPr(int units);
  void InertPr();

  unsigned MessageTav(void* unused, char* text1, char* text2, unsigned code);
  unsigned MessageDT(unsigned short year, unsigned short month, unsigned short day,
                     unsigned short hour);

  bool WriteDataRec(void* data, unsigned long length);
  bool WriteTavRec(char* text);
  unsigned WriteShapkaRec(char* name, char type, unsigned char width, char* unit, char role,
                          char* caption, char* group);
  unsigned WriteTavTitle(char kind, char* type, char* version, char* number, char* section,
                         TAVDT* time);
  unsigned WritePort(int unused, char* data, int length);

  void *stream, *port;
  float prStep;
  void* thread;
  unsigned threadId;
  SYSTEMTIME dateFrom, dateTo;
  unsigned char unusedFlag, groupFlag[16];
  int numberN, numberE, numberK, baud;
  char typeText[30], numberText[30], sectionText[30], versionText[60];
  int param[9], param16;
  float progress;
  bool stopRequest, idle;
  char prLock[24], stopLock[24];
};
#pragma pack(pop)

extern "C" DLL TavDrvV1* __cdecl LInit(void* stream, void* port);
extern "C" DLL unsigned __cdecl LFree(void* driver);

DLL bool DateTimeSysToTav(TAVDT* out, SYSTEMTIME* in);
DLL bool DateTimeTavToSys(SYSTEMTIME* out, TAVDT* in);
DLL unsigned GetAbsH(unsigned short year, unsigned char month, unsigned char day,
                     unsigned char hour);
DLL unsigned GetAbsD(unsigned short year, unsigned char month, unsigned char day);
DLL unsigned short GetAbsM(unsigned short year, unsigned char month);
DLL int DateTimeIncH(SYSTEMTIME* time);
DLL int DateTimeIncD(SYSTEMTIME* time);
DLL int DateTimeIncM(SYSTEMTIME* time);
DLL TAVDT DtUrmToTav(char* text);
DLL bool SysTimeToCharS(char* buffer, SYSTEMTIME* time);
DLL int IntToCharS(char* buffer, int value);
DLL char* UcToSChar(char* buffer, unsigned long value);
DLL double AnsiToDouble(char* text);
DLL bool StrExtr(char* source, char* target, int first, int last);
DLL bool ConvertCharDtoW(char* text, int last);
DLL void* _malloc_(unsigned size, unsigned char* failed);
DLL void* _malloc_(unsigned size);
DLL bool _free_(void* block);
