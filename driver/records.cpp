// Messages and output records: the only place that knows the format of the stream.
#include "TKSplDrv/records.h"

#include <cstring>
#include <initializer_list>

#include "TKSplDrv/driver.h"
#include "common/format.h"
#include "platform/platform.h"

unsigned TavDrvV1::MessageTav(void* /*unused*/, const char* text1, const char* text2,
                              unsigned code) {
  const bool accepted = stream != nullptr && stream->Message(text1, text2, code);
  platform::TerminationPoint();
  return accepted ? 1 : 2;
}

unsigned TavDrvV1::MessageDT(unsigned short year, unsigned short month, unsigned short day,
                             unsigned short hour) {
  return MessageTav(nullptr, common::Format("%02d.%02d.%d:%02d", day, month, year, hour),
                    "Date:hour", 0);
}

unsigned TavDrvV1::WriteDataRec(const void* data, unsigned long length) {
  const bool written = stream != nullptr && stream->Write(data, static_cast<unsigned>(length));
  platform::TerminationPoint();
  return written ? 1 : 0;
}

unsigned TavDrvV1::WriteTavRec(const char* text) {
  // A longer text is cut to its length modulo 256: intended.
  const auto length = static_cast<unsigned char>(text != nullptr ? std::strlen(text) : 0);
  return WriteDataRec(&length, 1) != 0 && WriteDataRec(text, length) != 0 ? 1 : 0;
}

unsigned TavDrvV1::WriteShapkaRec(const char* name, char type, unsigned char width,
                                  const char* unit, char role, const char* caption,
                                  const char* group) {
  const bool written = WriteTavRec(name) != 0 && WriteDataRec(&type, 1) != 0 &&
                       WriteDataRec(&width, 1) != 0 && WriteTavRec(unit) != 0 &&
                       WriteDataRec(&role, 1) != 0 &&
                       WriteTavRec(caption != nullptr ? caption : name) != 0 &&
                       WriteTavRec(group != nullptr ? group : tav::kDefaultGroup) != 0;
  return written ? 1 : 0;
}

unsigned TavDrvV1::WriteTavTitle(char kind, const char* type, const char* version,
                                 const char* number, const char* section, const TAVDT* time) {
  if (WriteDataRec(&kind, 1) == 0) return 0;
  for (const char* text : {type, version, number, section}) {
    if (WriteTavRec(text) == 0) return 0;
  }
  return WriteDataRec(time, sizeof *time);
}

unsigned TavDrvV1::WritePort(int /*unused*/, const char* data, int length) {
  if (port == nullptr) return 0;
  const int written = port->Write(data, static_cast<unsigned>(length));
  platform::TerminationPoint();
  return static_cast<unsigned>(written);
}
