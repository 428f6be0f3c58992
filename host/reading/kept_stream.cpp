#include "host/reading/kept_stream.h"

#include "host/reading/receiver.h"
#include "host/system/clock.h"

namespace host {

RunEnd RunKeptStream(const RawFile& raw, const std::string& name, RunListener& listener) {
  listener.BeginRun({std::nullopt, name, LocalNow()});
  Receiver receiver(listener);
  for (const Bytes& piece : raw.pieces) {
    receiver.Write(piece.data(), static_cast<unsigned>(piece.size()));
  }
  RunEnd end;
  end.counts = receiver.Finish();
  const std::string refusal = receiver.Status().refusal;
  end.reason = refusal.empty() ? raw.trouble : refusal;
  if (!end.reason.empty()) end.ending = Ending::kFailed;
  listener.EndRun(end);
  return end;
}

}  // namespace host
