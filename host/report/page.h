// The page around its data.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

namespace host {

// A whole HTML document. data: UTF-8, or nearly; what is not becomes replacement characters. The
// policy in it allows its own scripts and styles, and nothing from elsewhere.
std::string PageWith(const nlohmann::ordered_json& data, const std::string& language);

}  // namespace host
