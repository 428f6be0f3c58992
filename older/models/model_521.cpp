#include "older/models/model_521.h"

#include <cstring>

namespace older {
namespace {

// --- Database ---

ExchangeError RequestDatabase(TKSplImpl& reader, DatabasePages521& pages) {
  // No Control call before this one request: intended. Nor is a page ever left out.
  const ExchangeError sent =
      reader.link.Send(FlashRequest(0, kDatabasePages521), LineControl::kLeftOut);
  if (sent != ExchangeError::kNone) return sent;
  for (std::size_t page = 0; page < kDatabasePages521; ++page) {
    const ExchangeError error =
        reader.link.ReadReply(std::span(pages).subspan(page * kFlashPageSize, kFlashPageSize));
    if (error != ExchangeError::kNone) return InSecondHalf(error);
  }
  return ExchangeError::kNone;
}

void Store(std::span<std::uint8_t> record, const Field& field, const TAVDT& date) {
  std::memcpy(&record[field.offset], &date, sizeof date);
}

// Values that older firmware does not have.
void StoreAbsent(std::size_t count, std::span<std::uint8_t> record, std::size_t to) {
  constexpr float kAbsent = -1.0F;
  for (std::size_t i = 0; i < count; ++i) {
    std::memcpy(&record[to + i * sizeof kAbsent], &kAbsent, sizeof kAbsent);
  }
}

// --- Operative values ---

constexpr std::uint8_t kFirstVersionWithFlows = 2;

ExchangeError RequestFlows(TKSplImpl& reader, std::span<std::uint8_t> record) {
  constexpr std::size_t kTo = FieldOf(kOperLayout521, "G1").offset;
  if (reader.versionIndex < kFirstVersionWithFlows) {
    StoreAbsent(kFlowFloats521, record, kTo);
    return ExchangeError::kNone;
  }
  std::array<std::uint8_t, kFlowFloats521 * 4> flows{};
  const ExchangeError error = reader.link.ReadMemory(kFlowsAddress521, flows);
  if (error != ExchangeError::kNone) return InSecondHalf(error);
  CopyFloats(kFlowFloats521, flows, 0, record, kTo);
  return ExchangeError::kNone;
}

// Everything but the situation code, which this model does not deliver.
ExchangeError RequestOperative(TKSplImpl& reader, std::span<std::uint8_t> record) {
  std::array<std::uint8_t, kOperativeFloats521 * 4> values{};
  const ExchangeError error = reader.link.ReadMemory(kOperativeAddress521, values);
  if (error != ExchangeError::kNone) return error;
  CopyFloats(kOperativeFloats521, values, 0, record, FieldOf(kOperLayout521, "V1").offset);
  return RequestFlows(reader, record);
}

// --- Archive records ---

// What stands in a column under a mode code.
enum Source : std::uint8_t {
  kZero = 0,
  kAt12 = 12,  // the float at this offset of the reply
  kAt16 = 16,
  kAt20 = 20,
  kAt24 = 24,
  kDifference = 255,  // M1 - M2
};

// V1, V2, V3, M1, M2, M3 by mode code 0 to 9. Modes 7 to 9 leave floats of the reply out: intended.
constexpr std::size_t kModeColumns = 6;
constexpr Source kModes[][kModeColumns] = {
    {kAt12, kAt16, kZero, kAt20, kAt24, kDifference},
    {kAt12, kZero, kAt16, kAt20, kAt24, kDifference},
    {kZero, kAt12, kAt16, kAt20, kAt24, kDifference},
    {kAt12, kAt16, kZero, kAt20, kAt24, kZero},
    {kAt12, kAt16, kZero, kAt20, kAt24, kZero},
    {kAt12, kZero, kAt16, kAt20, kZero, kAt24},
    {kZero, kAt12, kAt16, kZero, kAt20, kAt24},
    {kAt12, kZero, kZero, kAt20, kZero, kZero},
    {kAt12, kAt16, kZero, kAt20, kZero, kZero},
    {kAt12, kAt16, kZero, kZero, kZero, kZero},
};

void ConvertByMode(std::uint8_t mode, std::span<const std::uint8_t> reply,
                   std::span<std::uint8_t> record) {
  if (mode >= std::size(kModes)) return;  // every column stays zero
  std::size_t to = FieldOf(kHourLayout521, "V1").offset;
  for (const Source source : kModes[mode]) {
    if (source == kDifference) {
      StoreDifference(record, FieldOf(kHourLayout521, "M3"), FieldOf(kHourLayout521, "M1"),
                      FieldOf(kHourLayout521, "M2"));
    } else if (source != kZero) {
      CopyFloat(reply, source, record, to);
    }
    to += 4;
  }
}

}  // namespace

ChosenUnits Units521(const TKSplImpl& reader, int /*system*/) {
  if (reader.driver.versionText[0] == 'w') return {"МПа"_w, "ГДж"_w};
  return {"кг/см2"_w, "ГКал"_w};
}

// Year 1 marks a date without a year. The time of day stands with its minute before its hour.
void ConvertDatabase521(const DatabasePages521& pages, std::uint8_t versionIndex,
                        std::span<std::uint8_t> record) {
  constexpr Field kTO = FieldOf(kBdLayout521, "TO");
  constexpr Field kID = FieldOf(kBdLayout521, "ID");
  const auto a = std::span(pages).first<kFlashPageSize>();
  const auto b = std::span(pages).last<kFlashPageSize>();
  CopyFloats(kTO.offset / 4, a, 0, record, 0);
  Store(record, kTO, {1, 1, 1, a[57], a[56], 0});
  Store(record, FieldOf(kBdLayout521, "DO"),
        {static_cast<unsigned short>(a[60] + 2000), a[61], a[62], 0, 0, 0});
  Store(record, FieldOf(kBdLayout521, "DL"), {1, b[0], b[1], 0, 0, 0});
  Store(record, FieldOf(kBdLayout521, "DS"), {1, b[4], b[5], 0, 0, 0});
  CopyFloat(b, 8, record, FieldOf(kBdLayout521, "NT").offset);
  if (versionIndex != 0) {
    CopyFloat(b, 12, record, kID.offset);
  } else {
    StoreAbsent(1, record, kID.offset);
  }
}

ReadResult ReadDatabase521(TKSplImpl& reader, const Block& block, int /*system*/,
                           std::span<std::uint8_t> record) {
  DatabasePages521 pages{};
  const AttemptPlan plan{.name = block.attempts, .confirmation = ForOthers(reader.policy)};
  const ReadResult result =
      Attempt(reader.driver, reader.policy, plan, [&] { return RequestDatabase(reader, pages); });
  if (result.done) ConvertDatabase521(pages, reader.versionIndex, record);
  return result;
}

ReadResult ReadOperative521(TKSplImpl& reader, const Block& block, int /*system*/,
                            std::span<std::uint8_t> record) {
  const AttemptPlan plan{.name = block.attempts, .confirmation = ForOthers(reader.policy)};
  return Attempt(reader.driver, reader.policy, plan,
                 [&] { return RequestOperative(reader, record); });
}

void ConvertHour521(Columns /*columns*/, std::span<const std::uint8_t> reply,
                    std::span<std::uint8_t> record) {
  const std::uint8_t mode = reply[2];
  record[FieldOf(kHourLayout521, "SP").offset] = mode;
  record[FieldOf(kHourLayout521, "NS").offset] = reply[3];
  CopyFloats(2, reply, 4, record, FieldOf(kHourLayout521, "t1").offset);
  CopyFloat(reply, 28, record, FieldOf(kHourLayout521, "Q").offset);
  ConvertByMode(mode, reply, record);
}

void ConvertDay521(Columns /*columns*/, std::span<const std::uint8_t> reply,
                   std::span<std::uint8_t> record) {
  constexpr std::size_t kFloats = 10;
  record[FieldOf(kDayLayout521, "SP").offset] = reply[2];
  CopyFloats(kFloats, reply, 4, record, FieldOf(kDayLayout521, "t1").offset);
}

}  // namespace older
