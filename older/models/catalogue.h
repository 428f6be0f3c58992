// Every model that this driver reads, one description a file.
#pragma once

#include "older/models/model.h"

namespace older {

extern const Model kModel521;
extern const Model kModel521x;
extern const Model kModel522;
extern const Model kModel523;
extern const Model kModel721;

}  // namespace older
