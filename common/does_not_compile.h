// The refusal of functions that run at compile time. They would throw, but the Windows library is
// built without exceptions.
#pragma once

namespace common {

// Never defined and no constant: where it would be called, the program does not compile.
[[noreturn]] void DoesNotCompile(const char* reason);

}  // namespace common
