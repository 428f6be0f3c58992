// From the settings of a reading to the driver's own questions and set-up.
#pragma once

#include <vector>

#include "host/reading/driver_library.h"
#include "host/reading/settings.h"

namespace host {

// bit/s, the usual one first.
std::vector<int> OfferedSpeeds(const DriverLibrary& library, tav::Mode kind);

// Asks the driver, without a line; throws UsageError when it does not offer what the settings ask
// for.
void CheckSettings(const DriverLibrary& library, const ReadSettings& settings);

// What the settings ask for and the kind does not have, one sentence; empty when there is nothing.
std::string UnreadGroups(const ReadSettings& settings);
// Throws UsageError when they ask for nothing else: a reading of nothing is no success.
void RequireReadGroups(const ReadSettings& settings);

// Everything that Start needs. The settings are ones that the driver offers.
void SetUpDriver(TavDrvV1& driver, const ReadSettings& settings);

}  // namespace host
