#pragma once

namespace host {

// How sections are shown.
enum class Format { kTable, kJson, kCsv };

}  // namespace host
