#include "k7/reads/parameter_block.h"

#include <algorithm>

#include "k7/link/messages.h"

namespace k7 {
namespace {

constexpr std::uint8_t kMostInBlock = 20;

}  // namespace

bool ReadParamBlock(TavDrvV1& driver, Requests& requests, RecordStream& out, std::uint8_t channel,
                    ParameterBlock block) {
  const std::uint8_t count = std::min(block.count, kMostInBlock);
  const ReceivedCommand received = requests.QueryParams(channel, block.first, count);
  if (!received) return true;
  const bool replied = Replied(driver, kReadParameters, received, "error basic");
  TlvWalk items(replied ? requests.LastReply().bytes : std::span<const std::uint8_t>());
  for (std::uint8_t i = 0; i < count; ++i) {
    Entry entry{};
    items.ItemBytes(entry);
    out.Data(entry);
  }
  return replied;
}

}  // namespace k7
