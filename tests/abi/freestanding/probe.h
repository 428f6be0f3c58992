// A call under observation: with each stack alignment, with marks in the registers that a
// callee must keep, and with the stack measured before and after.
#pragma once

// The assembly in probe.cpp knows the offsets.
struct Probe {
  const void* target = nullptr;                 // 0
  const void* self = nullptr;                   // 4, in ecx
  const unsigned* arguments = nullptr;          // 8
  unsigned count = 0;                           // 12
  unsigned misalignment = 0;                    // 16, bytes off a 16-byte boundary: 0, 4, 8 or 12
  unsigned result = 0;                          // 20, eax
  unsigned removed = 0;                         // 24, bytes of arguments that the callee removed
  unsigned ebx = 0, esi = 0, edi = 0, ebp = 0;  // 28, 32, 36, 40
};

extern "C" void RunProbe(Probe* probe);

enum class Convention { kThis, kC };  // who removes the arguments: the callee, the caller

struct Callee {
  const char* name;
  const void* target;
  const void* self;  // null for a free function
  Convention convention;
};

template <class Function>
Callee Of(const char* name, Function* function) {
  return {name, reinterpret_cast<const void*>(function), nullptr, Convention::kC};
}

template <class Object, class Member>
Callee Of(const char* name, Object& object, Member member) {
  const void* target = nullptr;
  static_assert(sizeof member == sizeof target);
  __builtin_memcpy(&target, &member, sizeof target);
  return {name, target, &object, Convention::kThis};
}

inline unsigned Word(unsigned value) { return value; }
inline unsigned Word(int value) { return static_cast<unsigned>(value); }
inline unsigned Word(const void* pointer) { return reinterpret_cast<unsigned>(pointer); }

// A byte and a 16-bit value as a host may pass them: with rubbish in the rest of the word.
constexpr unsigned Rubbish(unsigned byte) { return 0xDEADBE00U | (byte & 0xFF); }
constexpr unsigned Half(unsigned value) { return 0xDEAD0000U | value; }

// The words on the stack.
struct Arguments {
  unsigned words[12];
  unsigned count;

  template <class... Values>
  Arguments(Values... values) : words{Word(values)...}, count(sizeof...(values)) {}
};

// Calls once, checks stack and registers, returns eax.
unsigned Call(const Callee& callee, const Arguments& arguments, unsigned misalignment);

struct Row {
  Callee callee;
  Arguments arguments;
  unsigned result;
};

// Calls with all four alignments and checks the result of each.
void Expect(const Row& row);

template <unsigned kCount>
void Expect(const Row (&rows)[kCount]) {
  for (const Row& row : rows) Expect(row);
}
