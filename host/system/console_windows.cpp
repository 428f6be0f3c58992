#include <fcntl.h>
#include <io.h>
// clang-format off
#include <windows.h>
#include <shellapi.h>
// clang-format on

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>

#include "host/system/console.h"
#include "host/system/exit_codes.h"

namespace host {
namespace {

std::atomic<int> interruptCode = 0;

// The system ends the process when this returns from the end of a console or a session, and gives
// it some seconds before: the main thread uses them.
BOOL WINAPI OnControl(DWORD event) {
  const bool asked = event == CTRL_C_EVENT || event == CTRL_BREAK_EVENT;
  int first = 0;
  if (!interruptCode.compare_exchange_strong(first, asked ? kInterrupted : kTerminated)) {
    std::_Exit(first);
  }
  if (!asked) Sleep(INFINITE);
  return TRUE;
}

std::string Utf8Of(const wchar_t* text) {
  const int size = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
  if (size <= 1) return {};
  std::string utf8(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text, -1, utf8.data(), size, nullptr, nullptr);
  utf8.pop_back();  // the terminator
  return utf8;
}

}  // namespace

void SetUpConsole() {
  SetConsoleOutputCP(CP_UTF8);
  _setmode(_fileno(stdout), _O_BINARY);
  DWORD mode = 0;
  HANDLE error = GetStdHandle(STD_ERROR_HANDLE);
  if (GetConsoleMode(error, &mode) != 0) {
    SetConsoleMode(error, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
  }
}

// The C library's own arguments are in the system's code page, which lacks most letters.
std::vector<std::string> Arguments(int argc, char** argv) {
  int count = 0;
  wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count);
  if (wide == nullptr) return {argv + std::min(1, argc), argv + argc};
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(Utf8Of(wide[i]));
  LocalFree(wide);
  return arguments;
}

// The system's messages come in its code page and end with a full stop.
std::string ErrorText(const std::error_code& error) {
  std::string text = error.message();
  text.erase(text.find_last_not_of(". \r\n") + 1);
  std::wstring wide(text.size() + 1, L'\0');
  MultiByteToWideChar(CP_ACP, 0, text.c_str(), -1, wide.data(), static_cast<int>(wide.size()));
  return Utf8Of(wide.c_str());
}

bool ErrorIsTerminal() { return _isatty(_fileno(stderr)) != 0; }

void CountInterrupts() { SetConsoleCtrlHandler(OnControl, TRUE); }

bool Interrupted() { return interruptCode != 0; }

int InterruptExitCode() { return interruptCode; }

}  // namespace host
