// The host's stream and line as objects laid out by hand: a table of functions that return one byte
// and leave rubbish in the rest of the register.
#pragma once

struct StreamObject {
  const void* const* table;
  unsigned char answer = 1;  // what the next calls return
  unsigned longestMessage = 0;
  unsigned lastCode = 0;
  unsigned bytesWritten = 0;
  volatile bool ended = false;  // the reading thread has said so

  StreamObject();
};

struct PortObject {
  const void* const* table;
  unsigned char answer = 1;
  unsigned setUpCalls = 0;
  volatile unsigned reads = 0;
  unsigned lineBaud = 0;

  PortObject();
};
