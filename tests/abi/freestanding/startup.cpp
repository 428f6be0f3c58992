// What a compiler's runtime does before main, for a program that is linked without one: the
// system's C library hands the arguments over.
extern "C" {
struct StartupInfo {
  int newMode;
};
__declspec(dllimport) int __cdecl __getmainargs(int* argc, char*** argv, char*** environment,
                                                int expandWildcards, StartupInfo* info);
[[noreturn]] __declspec(dllimport) void __cdecl exit(int code);

extern const int _fltused = 0;

[[noreturn]] void __cdecl _purecall() { exit(3); }

int __cdecl main(int argc, char** argv);

void mainCRTStartup() {
  int argc = 0;
  char** argv = nullptr;
  char** environment = nullptr;
  StartupInfo info{0};
  __getmainargs(&argc, &argv, &environment, 0, &info);
  exit(main(argc, argv));
}
}
