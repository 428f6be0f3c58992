// What a program without any runtime needs: the few calls of the system that the host makes, and a
// report of checks. Declared here because no header of the platform is at hand, on purpose.
#pragma once

extern "C" {
__declspec(dllimport) void* __stdcall GetStdHandle(unsigned long which);
__declspec(dllimport) int __stdcall WriteFile(void* file, const void* data, unsigned long length,
                                              unsigned long* written, void* overlapped);
[[noreturn]] __declspec(dllimport) void __stdcall ExitProcess(unsigned code);
__declspec(dllimport) void __stdcall Sleep(unsigned long milliseconds);
__declspec(dllimport) unsigned long __stdcall WaitForSingleObject(void* handle,
                                                                  unsigned long milliseconds);
}

inline void* operator new(decltype(sizeof 0), void* place) noexcept { return place; }

bool SameText(const char* left, const char* right);

// Counts the check, and prints name and detail when it failed.
void Check(bool passed, const char* name, const char* detail);

// 0 when there were checks and all of them passed.
unsigned ExitCode();
