// Date, time and text conversions. Free functions without state, safe on any thread.
//
// Years are leap when divisible by 4, century years included; this is intended everywhere here.
#pragma once

#include "TKSplDrv/types.h"

// Copies the six fields; day of week and milliseconds are dropped. Always 1.
TAV_API unsigned DateTimeSysToTav(TAVDT* out, const SYSTEMTIME* in);
// Copies the six fields; day of week and milliseconds of the target stay. Always 1.
TAV_API unsigned DateTimeTavToSys(SYSTEMTIME* out, const TAVDT* in);

// Absolute numbers: hours, days (1 January of year 1 is day 1) and months. Months outside 1 to 12
// are not refused.
TAV_API unsigned GetAbsH(unsigned short year, unsigned char month, unsigned char day,
                         unsigned char hour);
TAV_API unsigned GetAbsD(unsigned short year, unsigned char month, unsigned char day);
TAV_API unsigned short GetAbsM(unsigned short year, unsigned char month);

// One hour, day or month on; smaller fields and the day of week stay. Always 1.
TAV_API unsigned DateTimeIncH(SYSTEMTIME* time);
TAV_API unsigned DateTimeIncD(SYSTEMTIME* time);
TAV_API unsigned DateTimeIncM(SYSTEMTIME* time);

// "04.09.16/13:05:09": day, month, two-digit year, hour, minute, second, with one character of any
// kind between them. Years from 95 on are 19xx. Fields that cannot be read count as 0.
TAV_API TAVDT DtUrmToTav(const char* text);

// "040916130509": 12 characters and the terminator into buffer. Always 1.
TAV_API unsigned SysTimeToCharS(char* buffer, const SYSTEMTIME* time);
// At least two digits: 7 gives "07". Always 1.
TAV_API unsigned IntToCharS(char* buffer, int value);
// Decimal, unsigned; returns buffer.
TAV_API char* UcToSChar(char* buffer, unsigned long value);
// The number at the start of text; 0.0 when there is none. The decimal sign is always the point.
TAV_API double AnsiToDouble(const char* text);

// Copies last - first + 2 characters from source[first] on and writes the terminator at
// target[last + 1], counted from the start of the target; both are intended. target holds at least
// last + 2 characters. Always 1.
TAV_API unsigned StrExtr(const char* source, char* target, int first, int last);
// Cyrillic letters of code page 866 to code page 1251, in place, for the indexes 0 to last.
// Always 1.
TAV_API unsigned ConvertCharDtoW(char* text, int last);

// A zero-filled block, or null; failed becomes 1 when there was no memory, else 0.
TAV_API void* _malloc_(unsigned size, unsigned char* failed);
TAV_API void* _malloc_(unsigned size);
// Releases a block of _malloc_; null is ignored. Always 1.
TAV_API unsigned _free_(void* block);
