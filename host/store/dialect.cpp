#include "host/store/dialect.h"

#include <algorithm>
#include <string_view>

#include "host/store/backends.h"

namespace host {
namespace {

// What the library says first of a connection that fails is not why.
std::string Essence(std::string text) {
  constexpr std::string_view kNoReason = "Cannot establish connection to the database.";
  if (text.starts_with(kNoReason)) text.erase(0, kNoReason.size());
  text.erase(0, std::min(text.find_first_not_of(" \n"), text.size()));
  return text.substr(0, text.find('\n'));
}

}  // namespace

bool IsServer(const std::string& address) {
  return address.starts_with("postgresql://") || address.starts_with("postgres://");
}

std::string ShownAddress(const std::string& address) {
  const std::size_t at = address.find('@');
  if (!IsServer(address) || at == std::string::npos) return address;
  const std::size_t user = address.find("://") + 3;
  const std::size_t colon = address.find(':', user);
  if (colon > at) return address;
  return address.substr(0, colon) + address.substr(at);
}

const Dialect& Connect(soci::session& session, const std::string& address) {
  return IsServer(address) ? OpenServer(session, address) : OpenFile(session, address);
}

std::string ReasonOf(soci::session& session, const soci::soci_error& error) {
  const std::string reason = FileReason(session);
  return reason.empty() ? Essence(error.get_error_message()) : reason;
}

}  // namespace host
