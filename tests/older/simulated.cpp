#include "tests/older/simulated.h"

namespace support {

simulator::Settings Instrument(const std::string& model) {
  simulator::Settings settings;
  settings.model = model;
  return settings;
}

SimulatedReading::SimulatedReading(const simulator::Settings& settings, const std::string& groups)
    : values(settings) {
  Connect(port, settings);
  Groups(groups);
  Range({2016, 8, 0, 25, 22, 10}, {2016, 9, 0, 2, 1, 20});
}

void SimulatedReading::Lose(std::function<bool(const Bytes& request)> lost) {
  port.answer = [answer = port.answer, lost = std::move(lost)](const Bytes& written) {
    return written.size() == 9 && lost(written) ? Bytes{} : answer(written);
  };
}

std::vector<Section> SimulatedReading::Sections(char kind, const char* title) const {
  std::vector<Section> all = Sections();
  std::erase_if(all, [=](const Section& section) {
    return section.kind != kind || (title != nullptr && section.title != title);
  });
  return all;
}

std::string SimulatedReading::Contents(std::size_t from, bool times) const {
  std::string contents;
  const auto sections = Sections();
  for (std::size_t i = from; i < sections.size(); ++i) {
    const Section& section = sections[i];
    if (!contents.empty()) contents += ", ";
    contents += section.kind + (" " + section.title);
    if (times && section.ended) contents += section.Date(0, "DT").substr(10);
  }
  return contents;
}

}  // namespace support
