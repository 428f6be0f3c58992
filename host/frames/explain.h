// Explains what goes over the line: of frames every byte, of other bytes what they could be and why
// they are not. It remembers what the frames before told: the instrument's model, and the request
// that a reply belongs to.
#pragma once

#include <memory>
#include <span>

#include "host/frames/frame.h"

namespace host::frames {

struct Context;

class Explainer {
 public:
  // model: as ModelNames gives it; empty: as the identification in the bytes says. Throws
  // std::invalid_argument for a model that there is not.
  explicit Explainer(Protocol protocol = Protocol::kUnknown, const std::string& model = {});
  ~Explainer();
  Explainer(Explainer&&) noexcept;
  Explainer& operator=(Explainer&&) noexcept;

  // Every byte is in one frame, in order. Received bytes are those behind the last request: all of
  // them at once, or some whole frames after the other.
  std::vector<Frame> Explain(ByteView bytes, Direction direction = Direction::kUnknown);
  // Received bytes of which those behind the first few were not read but thrown away before the
  // next request: good frames that reach into them are late.
  std::vector<Frame> ExplainDropped(ByteView bytes, std::size_t read);

  // Whether received bytes are all that the last request brings.
  bool IsWholeReply(ByteView received) const;

 private:
  std::unique_ptr<Context> context_;
};

std::span<const char* const> ModelNames();

}  // namespace host::frames
