#include "host/frames/context.h"

#include <algorithm>

#include "host/frames/explain.h"

namespace host::frames {
namespace {

constexpr ModelName kModels[] = {
    {"521", &older::kModel521, nullptr}, {"521.1x", &older::kModel521x, nullptr},
    {"522", &older::kModel522, nullptr}, {"523", &older::kModel523, nullptr},
    {"721", &older::kModel721, nullptr}, {"k7-521", nullptr, &k7::kModel521},
    {"k7-523", nullptr, &k7::kModel523},
};
static_assert(std::size(kModels) == std::size(older::kModels) + k7::kModels.size());

constexpr auto kNames = [] {
  std::array<const char*, std::size(kModels)> names{};
  std::transform(std::begin(kModels), std::end(kModels), names.begin(),
                 [](const ModelName& model) { return model.name; });
  return names;
}();

}  // namespace

std::span<const char* const> ModelNames() { return kNames; }

std::span<const ModelName> NamedModels() { return kModels; }

const char* NameOf(const older::Model& model) {
  const ModelName* named = kModels;
  while (named->older != &model) ++named;
  return named->name;
}

const char* NameOf(const k7::Model& model) {
  const ModelName* named = kModels;
  while (named->k7 != &model) ++named;
  return named->name;
}

void Context::Ask(ByteView request) {
  before = std::move(asked);
  asked.assign(request.begin(), request.end());
  flash.clear();
}

void Context::Identify(std::uint8_t family, std::uint8_t code, std::uint8_t versionByte) {
  version = versionByte;
  older = nullptr;
  for (const older::Model* known : older::kModels) {
    if (known->identity.family == family && known->identity.model == code) older = known;
  }
}

void Context::Identify(unsigned code) {
  k7 = nullptr;
  for (const k7::Model* known : k7::kModels) {
    if (known->introduction.code == code) k7 = known;
  }
}

}  // namespace host::frames
