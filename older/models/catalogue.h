// Every model that this driver reads, and what follows from the list: what a reading identifies
// instruments by, and how large its buffers are.
#pragma once

#include <algorithm>
#include <array>

#include "older/models/model_521.h"
#include "older/models/model_521x.h"
#include "older/models/model_522.h"
#include "older/models/model_523.h"
#include "older/models/model_721.h"

namespace older {

inline constexpr const Model* kModels[] = {&kModel521, &kModel522, &kModel523, &kModel721,
                                           &kModel521x};

inline constexpr auto kIdentities = std::apply(
    [](const auto*... model) { return std::array{&model->identity...}; }, std::to_array(kModels));

// The model of an identified instrument; null for none.
constexpr const Model* FindModel(const Identity* instrument) {
  for (const Model* model : kModels) {
    if (&model->identity == instrument) return model;
  }
  return nullptr;
}

// --- The largest sizes, in bytes ---

constexpr std::size_t OperativeSize(const Model& model) {
  std::size_t size = 0;
  for (const Block& block : model.operative.blocks) size += RecordSize(block.columns);
  return size;
}

constexpr std::size_t DatabaseSize(const Model& model) {
  const std::size_t own = RecordSize(model.database.block.columns);
  if (!model.systems) return own;
  return std::max(own, RecordSize(model.systems->database.block.columns));
}

constexpr std::size_t ArchiveSize(const Model& model) {
  std::size_t size = 0;
  for (const ArchiveSection& section : model.archives) {
    size = std::max(size, RecordSize(section.record.columns));
  }
  return size;
}

constexpr std::size_t LogSize(const Model& model) {
  std::size_t size = 0;
  for (const LogSection& section : model.logs) {
    size = std::max(size, RecordSize(section.log.columns));
  }
  return size;
}

consteval std::size_t Largest(std::size_t (*sizeOf)(const Model& model)) {
  std::size_t size = 0;
  for (const Model* model : kModels) size = std::max(size, sizeOf(*model));
  return size;
}

inline constexpr std::size_t kLargestDatabase = Largest(DatabaseSize);
inline constexpr std::size_t kLargestOperative = Largest(OperativeSize);
inline constexpr std::size_t kLargestArchiveRecord = Largest(ArchiveSize);
inline constexpr std::size_t kLargestLogRecord = Largest(LogSize);

// Whether a description agrees with itself and with what a reading has room for.
constexpr bool IsWhole(const Model* model) {
  return OperativeSize(*model) == RecordSize(model->operative.layout) &&
         OperativeSize(*model) <= kMostReplyData &&
         (!model->systems || model->systems->count <= kHeatSystems);
}
static_assert(std::ranges::all_of(kModels, IsWhole));

}  // namespace older
