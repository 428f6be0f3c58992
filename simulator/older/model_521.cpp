// Model 521: one heat system, floats instead of texts in its database, no logs.
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "simulator/older/encoding.h"
#include "simulator/older/model.h"
#include "simulator/older/values.h"

namespace simulator::older {
namespace {

constexpr unsigned kOperativeAddress = 195;
constexpr unsigned kFlowsAddress = 328;
constexpr int kFirstVersionWithFlows = 2;
constexpr std::size_t kHourlySize = 32;
constexpr std::size_t kLongSize = 64;

// Total volumes, masses, heat and time, then the temperatures of now.
constexpr Quantity kTotals[] = {kV1, kV2, kV3, kM1, kM2, kM3, kQ, kTw};
constexpr Quantity kTemperatures[] = {kT1, kT2};
constexpr Quantity kFlows[] = {kG1, kG2};
constexpr Quantity kLongRecord[] = {kT1, kT2, kV1, kV2, kV3, kM1, kM2, kM3, kQ, kTw};

// The four values between the temperatures and the heat of an hourly record, by the mode code.
// What a scheme doesn't show is stored all the same.
using Scheme = std::array<Quantity, 4>;
constexpr Scheme kSchemes[] = {{kV1, kV2, kM1, kM2}, {kV1, kV3, kM1, kM2}, {kV2, kV3, kM1, kM2},
                               {kV1, kV2, kM1, kM2}, {kV1, kV2, kM1, kM2}, {kV1, kV3, kM1, kM3},
                               {kV2, kV3, kM2, kM3}, {kV1, kV2, kM1, kM2}, {kV1, kV2, kM1, kM2},
                               {kV1, kV2, kM1, kM2}};

// The columns V1 V2 V3 M1 M2 M3 that a host shows; the third mass of the first three schemes is
// the difference of the others.
constexpr const char* kShown[] = {"xx-xxx", "x-xxxx", "-xxxxx", "xx-xx-", "xx-xx-",
                                  "x-xx-x", "-xx-xx", "x--x--", "xx-x--", "xx----"};

constexpr Parameter kParameters[] = {
    {"SP", "0"},      {"TC", "2"},    {"C1", "100"},   {"C2", "100"}, {"tx", "5"},
    {"t3", "55"},     {"P1", "6"},    {"P2", "4.5"},   {"P3", "5"},   {"KTh", "1.25"},
    {"r1", "0.97"},   {"r2", "0.98"}, {"w1", "0.5"},   {"w2", "0.5"}, {"TO", "9.30"},
    {"DO", "1.9.14"}, {"DL", "27.3"}, {"DS", "30.10"}, {"NT", "1"},   {"ID", "1"},
};
constexpr std::size_t kFloatsOnPageA = 14;
constexpr Block kBlocks[] = {{0, 0, false, kParameters}};

void PutQuantities(Bytes& bytes, const Row& row, std::span<const Quantity> quantities) {
  for (const Quantity quantity : quantities) PutFloat(bytes, row.Get(quantity));
}

class Memory521 : public Memory {
 public:
  explicit Memory521(const Values& values) : values_(values) {}

  std::optional<Bytes> Read(unsigned address, std::size_t count, Moment now) const override {
    Bytes bytes;
    if (address == kOperativeAddress) {
      PutQuantities(bytes, values_.TotalsRow(1, now), kTotals);
      PutQuantities(bytes, values_.CurrentRow(1, now), kTemperatures);
    } else if (address == kFlowsAddress && values_.Version() >= kFirstVersionWithFlows) {
      PutQuantities(bytes, values_.CurrentRow(1, now), kFlows);
    }
    if (bytes.empty() || bytes.size() != count) return std::nullopt;
    return bytes;
  }

  std::optional<Bytes> Flash(unsigned page, std::size_t count, Moment) const override {
    if (page + count > 2) return std::nullopt;
    Bytes flash = PageA();
    const Bytes second = PageB();
    flash.insert(flash.end(), second.begin(), second.end());
    const auto begin = flash.begin() + static_cast<std::ptrdiff_t>(page * kPageSize);
    return Bytes(begin, begin + static_cast<std::ptrdiff_t>(count * kPageSize));
  }

  Bytes Record(Archive kind, int system, Moment stamp) const override {
    const Row row = values_.MeasuredRow(kind, system, stamp);
    Bytes bytes{0, 0, static_cast<std::uint8_t>(row.Mode()),
                static_cast<std::uint8_t>(row.Situation())};
    if (kind == Archive::kHourly) {
      PutQuantities(bytes, row, kTemperatures);
      // Mode codes that have no scheme are stored as the first.
      PutQuantities(bytes, row, kSchemes[SchemeOf(row)]);
      PutFloat(bytes, row.Get(kQ));
    } else {
      PutQuantities(bytes, row, kLongRecord);
    }
    bytes.resize(kind == Archive::kHourly ? kHourlySize : kLongSize);
    return bytes;
  }

 private:
  static std::size_t SchemeOf(const Row& row) {
    const auto mode = static_cast<std::size_t>(row.Mode());
    return mode < std::size(kSchemes) ? mode : 0;
  }

  double Number(const char* column) const {
    return std::strtod(values_.ParameterText(0, column).c_str(), nullptr);
  }

  // The numbers of a date or time, in the order of its text.
  std::array<std::uint8_t, 3> Parts(const char* column) const {
    std::array<unsigned, 3> parts{};
    std::sscanf(values_.ParameterText(0, column).c_str(), "%u.%u.%u", &parts[0], &parts[1],
                &parts[2]);
    return {static_cast<std::uint8_t>(parts[0]), static_cast<std::uint8_t>(parts[1]),
            static_cast<std::uint8_t>(parts[2])};
  }

  Bytes PageA() const {
    Bytes page;
    for (std::size_t i = 0; i < kFloatsOnPageA; ++i) PutFloat(page, Number(kParameters[i].column));
    const auto time = Parts("TO");
    const auto date = Parts("DO");
    page.insert(page.end(), {time[1], time[0], 0, 0});  // the minute before the hour: intended
    page.insert(page.end(), {date[2], date[1], date[0], 0});
    return page;
  }

  // The days of the year have their month first.
  Bytes PageB() const {
    const auto summer = Parts("DL");
    const auto winter = Parts("DS");
    Bytes page{summer[1], summer[0], 0, 0, winter[1], winter[0], 0, 0};
    PutFloat(page, Number("NT"));
    PutFloat(page, Number("ID"));
    page.resize(kPageSize);
    return page;
  }

  const Values& values_;
};

// True when the scheme leaves the column out of the hourly record.
bool LeftOut(int mode, std::size_t quantity) {
  if (static_cast<std::size_t>(mode) >= std::size(kShown)) return true;
  return kShown[mode][quantity - kV1] == '-';
}

void CompleteArchive(Archive kind, Row& row) {
  if (kind != Archive::kHourly) return;
  if (row.Mode() <= 2) row.TakeDifferenceAsM3();
  for (std::size_t i = kV1; i <= kM3; ++i) {
    if (LeftOut(row.Mode(), i)) row.Set(static_cast<Quantity>(i), 0);
  }
}

void CompleteCurrent(int version, Row& row) {
  if (version >= kFirstVersionWithFlows) return;
  row.Set(kG1, -1);
  row.Set(kG2, -1);
}

// Versions from 10 on are the ones whose heat is in GJ and whose pressures are in MPa.
int UnitsOfVersion(int version) { return version >= 10 && version <= 15 ? 1 : 0; }

constexpr Choice kFirmwares[] = {{"0", "кг/см2, ГКал: firmware vX.2.11"},
                                 {"1", "МПа, ГДж: firmware wX.2.11"}};

std::unique_ptr<Memory> MakeMemory521(const Model&, const Values& values) {
  return std::make_unique<Memory521>(values);
}

}  // namespace

const Model kModel521 = {
    .info = {{"521", "heat meter, one heat system"}, kFirmwares},
    .family = 'T',
    .code = 0x29,
    .version = 4,
    .unitsOfVersion = UnitsOfVersion,
    .versionOfUnits1 = 12,
    .clockAddress = 100,
    .noRecordCode = 2,
    .memory = MakeMemory521,
    .blocks = kBlocks,
    .completeArchive = CompleteArchive,
    .completeCurrent = CompleteCurrent,
};

}  // namespace simulator::older
