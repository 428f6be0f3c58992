// Every model that this driver reads, one description a file.
#pragma once

#include "older/models/model.h"

namespace older {

extern const Model kModel521;

}  // namespace older
