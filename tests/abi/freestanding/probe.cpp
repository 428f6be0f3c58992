#include "tests/abi/freestanding/probe.h"

#include "tests/abi/freestanding/system.h"

__asm__(R"(
    .intel_syntax noprefix
    .bss
probe:        .long 0
own_stack:    .long 0
stack_before: .long 0
stack_after:  .long 0

    .text
    .globl _RunProbe
_RunProbe:
    push ebp
    push ebx
    push esi
    push edi
    mov eax, [esp + 20]
    mov [probe], eax
    mov [own_stack], esp
    and esp, -16
    sub esp, [eax + 16]
    mov ecx, [eax + 12]
    mov edx, [eax + 8]
next_argument:
    test ecx, ecx
    jz arguments_done
    push dword ptr [edx + ecx * 4 - 4]
    dec ecx
    jmp next_argument
arguments_done:
    mov [stack_before], esp
    mov ecx, [eax + 4]
    mov eax, [eax]
    mov ebx, 0x0B0B0B0B
    mov esi, 0x51515151
    mov edi, 0xD1D1D1D1
    mov ebp, 0xB9B9B9B9
    call eax
    mov [stack_after], esp
    mov esp, [own_stack]
    mov edx, [probe]
    mov [edx + 20], eax
    mov [edx + 28], ebx
    mov [edx + 32], esi
    mov [edx + 36], edi
    mov [edx + 40], ebp
    mov eax, [stack_after]
    sub eax, [stack_before]
    mov [edx + 24], eax
    pop edi
    pop esi
    pop ebx
    pop ebp
    ret
    .att_syntax
)");

unsigned Call(const Callee& callee, const Arguments& arguments, unsigned misalignment) {
  Probe probe;
  probe.target = callee.target;
  probe.self = callee.self;
  probe.arguments = arguments.words;
  probe.count = arguments.count;
  probe.misalignment = misalignment;
  RunProbe(&probe);
  const unsigned removed = callee.convention == Convention::kThis ? arguments.count * 4 : 0;
  Check(probe.removed == removed, callee.name, "the stack is not balanced");
  Check(probe.ebx == 0x0B0B0B0B && probe.esi == 0x51515151 && probe.edi == 0xD1D1D1D1 &&
            probe.ebp == 0xB9B9B9B9,
        callee.name, "a register is not kept");
  return probe.result;
}

void Expect(const Row& row) {
  for (unsigned misalignment = 0; misalignment < 16; misalignment += 4) {
    Check(Call(row.callee, row.arguments, misalignment) == row.result, row.callee.name,
          "wrong result");
  }
}
