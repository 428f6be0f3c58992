// The models that this driver reads; a further one is a line in the list.
#pragma once

#include <algorithm>

#include "k7/models/model_521.h"
#include "k7/models/model_523.h"

namespace k7 {

inline constexpr std::array kModels = {&kModel521, &kModel523};

// What a session needs of them.
inline constexpr auto kIntroductions = [] {
  std::array<const Introduction*, kModels.size()> introductions{};
  std::transform(kModels.begin(), kModels.end(), introductions.begin(),
                 [](const Model* model) { return &model->introduction; });
  return introductions;
}();

// Bytes of the longest record that is built of a reply's values.
inline constexpr std::size_t kLargestRecord = [] {
  std::size_t largest = 0;
  for (const Model* model : kModels) {
    for (const Columns& columns : {model->current.columns, model->totals.columns,
                                   model->periodic.columns, model->control.columns}) {
      largest = std::max(largest, RecordSize(columns));
    }
  }
  return largest;
}();

// The model of a type, which is one of theirs.
inline const Model& ModelOf(std::uint32_t devType) {
  return **std::find_if(kModels.begin(), kModels.end(),
                        [=](const Model* model) { return model->introduction.devType == devType; });
}

}  // namespace k7
