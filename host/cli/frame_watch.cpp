#include "host/cli/frame_watch.h"

#include <fmt/format.h>

#include <optional>
#include <utility>

#include "host/output/frame_list.h"

namespace host {
namespace {

// Of a frame that is shown; the rest of a long one is told by its names.
constexpr std::size_t kMostBytes = 16;

std::optional<ReplyKind> KindOf(frames::FrameClass kind) {
  using frames::FrameClass;
  switch (kind) {
    case FrameClass::kReply:
    case FrameClass::kErrorReply:
      return ReplyKind::kGood;
    case FrameClass::kWrongChecksum:
      return ReplyKind::kWrongChecksum;
    case FrameClass::kForeign:
      return ReplyKind::kForeign;
    case FrameClass::kEcho:
      return ReplyKind::kEcho;
    default:
      return std::nullopt;
  }
}

}  // namespace

FrameWatch::FrameWatch(Screen& screen, bool shown)
    : screen_(screen),
      shown_(shown),
      feed_([this](const frames::Frame& frame, ByteView bytes, long long ms) {
        Take(frame, bytes, ms);
      }) {}

std::unique_ptr<LinePort> FrameWatch::Over(std::unique_ptr<LinePort> line,
                                           LineStatistics::Now now) {
  auto counted = std::make_unique<LineStatistics>(std::move(line), now);
  statistics_ = counted.get();
  return std::make_unique<frames::FeedingLine>(std::move(counted), feed_, std::move(now));
}

void FrameWatch::Take(const frames::Frame& frame, ByteView bytes, long long ms) {
  if (const auto kind = KindOf(frame.kind)) statistics_->Note(*kind);
  if (!shown_) return;
  screen_.PrintLine(fmt::format("{:9.3f} s  {}  {}", static_cast<double>(ms) / 1000,
                                FrameLine(frame), BytesText(bytes, kMostBytes)));
}

}  // namespace host
