#include "host/reading/kept_stream.h"

#include "host/reading/receiver.h"
#include "host/system/clock.h"

namespace host {

namespace {

std::string TroubleOf(const std::string& refusal, const KeptPieces& pieces,
                      const StreamCounts& counts, const std::string& name) {
  if (!refusal.empty()) return refusal;
  if (!pieces.Trouble().empty() || counts.sections > 0) return pieces.Trouble();
  return name + " holds no section of an instrument";
}

}  // namespace

RunEnd RunKeptStream(KeptPieces& pieces, const std::string& name, RunListener& listener) {
  listener.BeginRun({std::nullopt, name, LocalNow()});
  Receiver receiver(listener);
  for (Bytes piece; !receiver.Refused() && pieces.Next(piece);) {
    receiver.Write(piece.data(), static_cast<unsigned>(piece.size()));
  }
  RunEnd end;
  end.counts = receiver.Finish();
  end.reason = TroubleOf(receiver.Status().refusal, pieces, end.counts, name);
  if (!end.reason.empty()) end.ending = Ending::kFailed;
  listener.EndRun(end);
  return end;
}

}  // namespace host
