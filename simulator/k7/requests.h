// What the data of requests say.
#pragma once

#include <optional>
#include <vector>

#include "simulator/instrument.h"
#include "simulator/k7/model.h"
#include "simulator/moment.h"

namespace simulator::k7 {

struct Reference {
  int channel, number;
};
// Nothing when the data are anything else.
std::optional<std::vector<Reference>> ParseReferences(const Bytes& data);

struct ArchiveRequest {
  int channel;
  Archive kind;
  Moment from, to;
};
// Hosts send the last moment's minute and second in the place of the first one's, and zeros in
// their own: whole hours are meant, the last one included. Nothing when the data are anything else.
std::optional<ArchiveRequest> ParseArchiveRequest(const Bytes& data);

}  // namespace simulator::k7
