// The driver object as a host sees it.
//
// Order of use: LInit, the questions (GetName, GetBaud, CanReadGroup, GetNumberLimit), the set-up
// (SetupNumer, SetupReadGroup, SetupDateTime, SetupBaud, SetupParametr), Start, then GetPr and
// IsStop while the reading thread runs, Stop to ask for an early end, and LFree or Destroy.
//
// Threads: one host thread calls the object; the driver's own reading thread calls the host's
// HostStream and HostPort. Results are 32-bit values; where a flag is returned it is 1 or 0 in the
// whole register. Nothing is ever thrown to the host. Texts are code page 1251, zero-terminated.
#pragma once

#include "TKSplDrv/host.h"
#include "TKSplDrv/types.h"

// A lock's storage: the platform's critical section, opaque to hosts.
#if defined(_WIN32)
struct TavLock {
  unsigned char storage[24];
};
#else
struct alignas(8) TavLock {
  unsigned char storage[48];
};
#endif

// The routine of the reading thread; its argument is the driver object.
typedef unsigned long(TAV_STDCALL* TavThreadRoutine)(void* driver);

// The read-group letters in the order of their flags; upper and lower case are distinct.
inline constexpr char kReadGroupLetters[] = "HhSsMmTtBbEePpJj";
inline constexpr int kReadGroupCount = 16;

// Windows hosts lay the fields out without gaps; a POSIX host has no such history, and its locks
// need their alignment.
#if defined(_WIN32)
#pragma pack(push, 1)
#endif

class TAV_API TavDrvV1 {
 public:
  // stream and port are the host's HostStream and HostPort; the host keeps owning them.
  TavDrvV1(void* stream, void* port);
  // Ends the reading thread (Kill) and deletes the locks. Not a virtual destructor: other compilers
  // give that two slots, and the host's table has one (Destroy).
  ~TavDrvV1();
  TavDrvV1(const TavDrvV1&) = delete;
  TavDrvV1& operator=(const TavDrvV1&) = delete;

  // --- The 13 slots, in the order of the host's table ---

  // 0. kind 1: older protocol, 2: K7. language: the platform's primary language identifier, 9
  // English, 25 Russian; any other empties the text. Returns the number of kinds, 2.
  virtual unsigned GetName(int kind, char* text, int language) = 0;
  // 1. The index-th (from 1) line speed of a kind, in bit/s. Returns how many a kind offers.
  virtual unsigned GetBaud(int kind, int index, int* baud) = 0;
  // 2. Whether a kind reads the group of this letter.
  virtual unsigned CanReadGroup(int kind, char letter) = 0;
  // 3. The largest number for letter 'N'; any other letter returns 0.
  virtual unsigned GetNumberLimit(int kind, char letter, int* limit) = 0;
  // 4. Sets the port up and starts the reading thread; mode 1: older protocol, 2: K7. Returns 1, or
  // 0 when the port refused, no thread could be had, or this object has already read once.
  virtual unsigned Start(int mode) = 0;
  // 5. Asks the reading to stop at its next check; the request is cleared by the ReadStop that
  // follows it, so a host that must be obeyed asks until the reading has ended.
  virtual unsigned Stop() = 0;
  // 6. Progress: 0 to 99 while reading, 101 after success, negative after a failure.
  virtual int GetPr();
  // 7. 'N': network number of the instrument; 'E', 'K': stored only. Other letters return 0.
  virtual unsigned SetupNumer(char which, int value);
  // 8. Switches a read group on or off; a letter not in kReadGroupLetters returns 0.
  virtual unsigned SetupReadGroup(char letter, bool on);
  // 9. The period of the archives.
  virtual unsigned SetupDateTime(SYSTEMTIME from, SYSTEMTIME to);
  // 10. Line speed in bit/s.
  virtual unsigned SetupBaud(int baud);
  // 11. Numbered parameters, 32-bit integers at value (size is not looked at): 1 attempts, 2 double
  // reading, 3 validity test, 4 pause in ms after a failed attempt, 5 to 9 stored only, 16
  // continuous reading. Other indexes return 0.
  virtual unsigned SetupParametr(char index, int size, void* value);
  // 12. The deleting destructor: destroys the object, frees it when bit 0 of flags is set, and
  // returns the object's address. It frees what LInit created; a class of the host's own that lies
  // elsewhere is destroyed with flags 0, or overrides this.
  virtual void* Destroy(unsigned flags);

  // --- Thread control, exported, not in the table ---

  // Starts the reading thread with this routine, once per object: 300, or 0.
  unsigned Start(TavThreadRoutine routine);
  // Whether the host asked to stop.
  unsigned IsStop();
  // 1 when a stop is requested and no thread was ever started, else 0.
  unsigned Close();
  // Terminates the reading thread if one was ever started. Always 1.
  unsigned Kill();
  // The reading's final report: progress 101 or negative, and the message. Clears a stop request.
  unsigned ReadStop(bool ok);

  // --- Progress ---

  void SetPr(int value);
  // Adds units times prStep; what reaches 100 becomes 99.
  void IncPr(int units);
  // Marks a failed reading: a positive progress is negated, 0 becomes -1.
  void InertPr();

  // --- Messages ---

  // 1 when the host accepted the message, else 2.
  unsigned MessageTav(void* unused, const char* text1, const char* text2, unsigned code);
  // "05.03.2016:07" / "Date:hour".
  unsigned MessageDT(unsigned short year, unsigned short month, unsigned short day,
                     unsigned short hour);

  // --- Output records; each returns 1, or 0 at the first write that the host refuses ---

  unsigned WriteDataRec(const void* data, unsigned long length);
  // A length byte and the characters; of a text of 256 or more only length modulo 256.
  unsigned WriteTavRec(const char* text);
  // A column header. A null caption repeats the name, a null group is "default".
  unsigned WriteShapkaRec(const char* name, char type, unsigned char width, const char* unit,
                          char role, const char* caption, const char* group);
  unsigned WriteTavTitle(char kind, const char* type, const char* version, const char* number,
                         const char* section, const TAVDT* time);
  // Passes data to the port and returns the number of bytes written.
  unsigned WritePort(int unused, const char* data, int length);

  // --- Fields, in the host's order ---

  HostStream* stream;
  HostPort* port;
  float prStep;                              // progress per unit of work, set by the readers
  void* thread;                              // handle of the reading thread, never closed
  unsigned threadId;                         // 0: none
  SYSTEMTIME dateFrom;                       // first moment of the archives
  SYSTEMTIME dateTo;                         // last moment of the archives
  unsigned char unusedFlag;                  // always 0
  unsigned char groupFlag[kReadGroupCount];  // in the order of kReadGroupLetters
  int numberN;                               // network number
  int numberE;                               // not read by this driver
  int numberK;                               // not read by this driver
  int baud;                                  // bit/s
  char typeText[30];                         // model of the instrument
  char numberText[30];                       // its serial number
  char sectionText[30];                      // fourth text of some titles
  char versionText[60];                      // firmware version
  int param[9];                              // numbered parameters 1 to 9
  int param16;                               // continuous reading
  float progress;                            // percent
  unsigned char stopRequest;                 // the host asked to stop
  unsigned char idle;                        // no thread was ever started
  TavLock prLock;                            // guards progress
  TavLock stopLock;                          // guards stopRequest and idle; taken before prLock
};

#if defined(_WIN32)
#pragma pack(pop)
#endif

extern "C" {
// Creates a driver bound to the host's HostStream and HostPort; null when memory is short. Free it
// with LFree or with Destroy(1).
TAV_API TavDrvV1* TAV_CDECL LInit(void* stream, void* port);
// Releases the memory only: a running thread goes on and the locks are not deleted, so call it when
// the reading has ended. Always 1.
TAV_API unsigned TAV_CDECL LFree(void* driver);
}
