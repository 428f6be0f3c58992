// Finding out which instrument answers, and its clock.
#pragma once

#include "older/session/attempts.h"
#include "older/session/reader_state.h"

namespace older {

// One wake-up and one '?' exchange. On success the instrument, its version index and its texts are
// set; one of unknown firmware counts as success here.
bool Identify(TKSplImpl& reader, std::uint8_t session);

// The same with the host's attempts; twice when double reading is on. The instrument then answers
// archive requests for heat system session (0 counts as 1).
bool IdentifyWithAttempts(TKSplImpl& reader, std::uint8_t session);

// "Tip" and "Version" to the host.
void SendIdentity(TKSplImpl& reader);

// Reads the instrument's clock, with attempts, into InstrumentClock.
ReadResult ReadClock(TKSplImpl& reader);

// Between two attempts: identifies again, tells the host, reads the clock.
bool ReopenSession(TKSplImpl& reader);

// The bytes of the clock: year, month, day, hour, minute, second.
inline constexpr std::size_t kClockSize = 6;
TAVDT DecodeClock(std::span<const std::uint8_t, kClockSize> bytes);

}  // namespace older
