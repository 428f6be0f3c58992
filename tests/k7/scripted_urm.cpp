#include "tests/k7/scripted_urm.h"

namespace k7test {

using namespace common::literals;
using support::Hex;

Bytes ScriptedUrm::Parameters(const Bytes& references) const {
  Bytes data;
  for (std::size_t i = 0; i + 5 <= references.size(); i += 5) {
    const int channel = references[i + 2];
    const int number = references[i + 3] + 256 * references[i + 4];
    const auto item = items.find({channel, number});
    if (item != items.end()) {
      data = Joined({data, item->second});
    } else if (channel == 0 && number == 0x0400) {
      data = Joined({data, Item(5, Hex("00 09 05 0D"))});
    } else if (channel == 0 && number == 0x0401) {
      data = Joined({data, Item(5, Hex("04 09 10"))});
    } else {
      data = Joined({data, UIntItem(static_cast<unsigned>(number))});
    }
  }
  return data;
}

std::optional<Answer> ScriptedUrm::operator()(const Request& request) {
  requests.push_back(request);
  if (before) {
    if (const auto answer = before(request)) return *answer;
  }
  const Bytes& data = request.data;
  switch (request.command) {
    case 0x3F:
      return Answer{
          0x3F,
          {static_cast<std::uint8_t>(code & 0xFF), static_cast<std::uint8_t>(code >> 8), 0, 12}};
    case 0x72:
      return Answer{0x72, Parameters(data)};
    case 0x61:
      return Answer{0x61, archive
                              ? archive({data.at(5), Bytes(data.begin() + 9, data.begin() + 17)})
                              : Bytes{}};
    default:
      return std::nullopt;
  }
}

Reading::Reading(int code, const char* groups) {
  urm.code = code;
  driver.dateFrom = {2016, 3, 0, 31, 22, 10, 0, 0};
  driver.dateTo = {2016, 4, 0, 1, 1, 0, 0, 0};
  Groups(groups);
  Attach(port, [this](const Request& request) { return urm(request); });
}

std::string Reading::Run() {
  support::Reading::Run(2);
  return stream.messages.at(stream.messages.size() - 2);
}

bool Reading::Said(const char* detail, const char* subject) const {
  return stream.Said(support::MessageLine(detail, subject, 0));
}

}  // namespace k7test
