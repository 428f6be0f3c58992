// Types and macros that every public header shares: calling conventions, export marks, the
// platform's SYSTEMTIME and the host's 7-byte date record.
#pragma once

#if defined(_WIN32)
#define TAV_CDECL __cdecl
#define TAV_STDCALL __stdcall
#if defined(TKSPLDRV_BUILD)
#define TAV_API __declspec(dllexport)
#elif defined(TKSPLDRV_STATIC)
#define TAV_API
#else
#define TAV_API __declspec(dllimport)
#endif
#else
#define TAV_CDECL
#define TAV_STDCALL
#define TAV_API __attribute__((visibility("default")))
#endif

#if defined(_WIN32) && __has_include(<windows.h>)
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#else
// The platform's date and time as a host passes it: local time, eight 16-bit fields, 16 bytes.
struct _SYSTEMTIME {
  unsigned short wYear;          // full year, 2016
  unsigned short wMonth;         // 1 to 12
  unsigned short wDayOfWeek;     // not looked at by the driver
  unsigned short wDay;           // 1 to 31
  unsigned short wHour;          // 0 to 23
  unsigned short wMinute;        // 0 to 59
  unsigned short wSecond;        // 0 to 59
  unsigned short wMilliseconds;  // 0 to 999
};
typedef _SYSTEMTIME SYSTEMTIME;
#endif

static_assert(sizeof(SYSTEMTIME) == 16);

#pragma pack(push, 1)
// The host's date-time record, 7 bytes without gaps. It goes into the output stream as it stands.
// Functions return it by value through a hidden pointer; compilers agree on that only at this size.
struct TAVDT {
  unsigned short year;   // full year, little-endian
  unsigned char month;   // 1 to 12
  unsigned char day;     // 1 to 31
  unsigned char hour;    // 0 to 23
  unsigned char minute;  // 0 to 59
  unsigned char second;  // 0 to 59
};
#pragma pack(pop)

static_assert(sizeof(TAVDT) == 7);
