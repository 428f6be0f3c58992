#include "tests/abi/freestanding/host_objects.h"

#include "tests/abi/freestanding/probe.h"
#include "tests/abi/freestanding/system.h"

#define THISCALL __attribute__((thiscall))

namespace {

THISCALL unsigned Message(StreamObject* self, const char* text, const char* subject,
                          unsigned code) {
  unsigned length = 0;
  while (text[length] != '\0') ++length;
  if (length > self->longestMessage) self->longestMessage = length;
  self->lastCode = code;
  if (SameText(subject, "Opros End")) self->ended = true;
  return Rubbish(self->answer);
}

THISCALL unsigned Write(StreamObject* self, const void* /*data*/, unsigned length) {
  self->bytesWritten += length;
  return Rubbish(self->answer);
}

const void* const kStreamTable[] = {reinterpret_cast<const void*>(&Message),
                                    reinterpret_cast<const void*>(&Write)};

THISCALL unsigned Control(PortObject* self, int /*code*/) {
  ++self->setUpCalls;
  return Rubbish(self->answer);
}

THISCALL unsigned SetTimeouts(PortObject* self, unsigned, unsigned, unsigned, unsigned, unsigned) {
  ++self->setUpCalls;
  return Rubbish(self->answer);
}

THISCALL unsigned SetLine(PortObject* self, int, int, int baud, int, int, int) {
  ++self->setUpCalls;
  self->lineBaud = static_cast<unsigned>(baud);
  return Rubbish(self->answer);
}

THISCALL unsigned SetBuffers(PortObject* self, int, int) {
  ++self->setUpCalls;
  return Rubbish(self->answer);
}

THISCALL void NeverCalled(PortObject*) { Check(false, "HostPort", "a reserved slot is called"); }

// A line on which nobody answers.
THISCALL int Read(PortObject* self, unsigned, unsigned, void*) {
  self->reads = self->reads + 1;
  Sleep(20);
  return 0;
}

THISCALL int WriteLine(PortObject*, const void*, unsigned length) {
  return static_cast<int>(length);
}

const void* const kPortTable[] = {
    reinterpret_cast<const void*>(&Control),     reinterpret_cast<const void*>(&SetTimeouts),
    reinterpret_cast<const void*>(&NeverCalled), reinterpret_cast<const void*>(&SetLine),
    reinterpret_cast<const void*>(&NeverCalled), reinterpret_cast<const void*>(&SetBuffers),
    reinterpret_cast<const void*>(&Read),        reinterpret_cast<const void*>(&WriteLine)};

}  // namespace

StreamObject::StreamObject() : table(kStreamTable) {}
PortObject::PortObject() : table(kPortTable) {}
