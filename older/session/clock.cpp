#include "common/format.h"
#include "older/session/session.h"

namespace older {

TAVDT DecodeClock(std::span<const std::uint8_t, kClockSize> bytes) {
  const unsigned century = bytes[0] < 90 ? 2000 : 1900;
  TAVDT clock{static_cast<unsigned short>(century + bytes[0]),
              bytes[1],
              bytes[2],
              bytes[3],
              bytes[4],
              bytes[5]};
  if (clock.hour > 23) clock.hour = 23;
  // An impossible minute or second clears the hour, not itself: intended.
  if (clock.minute > 59) clock.hour = 0;
  if (clock.second > 59) clock.hour = 0;
  return clock;
}

ReadResult ReadClock(TKSplImpl& reader) {
  if (reader.instrument == nullptr) {
    reader.Say("pribor type not found", "DT");
    return {};
  }
  std::array<std::uint8_t, kClockSize> bytes{};
  const std::uint16_t address = reader.instrument->clock;
  const AttemptPlan plan{.name = "PopitkaTime", .confirmation = ForOthers(reader.policy)};
  const ReadResult result = Attempt(reader.driver, reader.policy, plan,
                                    [&] { return reader.link.ReadMemory(address, bytes); });
  if (result.done) reader.InstrumentClock = DecodeClock(bytes);
  return result;
}

bool ReopenSession(TKSplImpl& reader) {
  if (!IdentifyWithAttempts(reader, 0)) return false;
  SendIdentity(reader);
  const ReadResult result = ReadClock(reader);
  if (!result.done) {
    reader.SayNumber(static_cast<unsigned long>(result.error), "Dt");
    return false;
  }
  const TAVDT& clock = reader.InstrumentClock;
  reader.Say(common::Format("%d.%d.%d %d:%d:%d", clock.year, clock.month, clock.day, clock.hour,
                            clock.minute, clock.second),
             "DT");
  return true;
}

}  // namespace older
