// The two objects that a host hands to LInit: where the driver sends messages and records, and the
// serial line that it reads through. The host owns both and keeps them alive until the driver
// object is freed. Slot order is the binary interface: implement the operations in this order, with
// the platform's convention for member functions.
//
// Every operation but the line set-up is called from the driver's reading thread, without a lock.
// No operation may throw.
#pragma once

// Receives messages and output records.
class HostStream {
 public:
  // Slot 0. text1: value or detail, text2: subject (both code page 1251, zero-terminated, valid
  // during the call only); code: 0, or 1 for a notice of continuous reading. Returns whether the
  // message was accepted; a refused message changes nothing.
  virtual bool Message(const char* text1, const char* text2, unsigned code) = 0;

  // Slot 1. One piece of the output stream, length bytes (0 is possible). Returns whether it was
  // written; a refused piece ends the reading.
  virtual bool Write(const void* data, unsigned length) = 0;

 protected:
  ~HostStream() = default;
};

// The serial line.
class HostPort {
 public:
  // Slot 0. A control code of the port object: 5 once when the line is opened, 3 before each
  // request of the older protocol (drop what was received earlier).
  virtual bool Control(int code) = 0;

  // Slot 1. Time-outs in milliseconds, as the platform's serial lines define them.
  virtual bool SetTimeouts(unsigned readInterval, unsigned readPerByte, unsigned readConstant,
                           unsigned writePerByte, unsigned writeConstant) = 0;

  // Slot 2. Never called.
  virtual void Reserved2() = 0;

  // Slot 3. unknown1 is always 1 and unknown0 always 0; baud in bit/s; dataBits 8; parity 2 = even;
  // stopBits 0 = one stop bit.
  virtual bool SetLine(int unknown1, int unknown0, int baud, int dataBits, int parity,
                       int stopBits) = 0;

  // Slot 4. Never called.
  virtual void Reserved4() = 0;

  // Slot 5. Buffer sizes in bytes.
  virtual bool SetBuffers(int input, int output) = 0;

  // Slot 6. Waits at most timeoutMs for count bytes and returns the number stored at destination
  // (0 on a time-out). A count of 0 takes nothing.
  virtual int Read(unsigned timeoutMs, unsigned count, void* destination) = 0;

  // Slot 7. Returns the number of bytes written.
  virtual int Write(const void* data, unsigned length) = 0;

 protected:
  ~HostPort() = default;
};
