#include "tests/older_models/simulated.h"

namespace support {

std::string Said(const char* text1, const char* text2) { return MessageLine(text1, text2, 0); }

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

}  // namespace support
