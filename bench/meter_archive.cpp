#include "bench/meter_archive.h"

#include <fmt/format.h>

#include <array>
#include <cmath>
#include <cstring>
#include <span>

#include "common/cp1251.h"
#include "common/format.h"
#include "driver/record_stream.h"
#include "driver/tkspl_drv.h"
#include "host/reading/periods.h"
#include "host/reading/receiver.h"
#include "older/models/model_523.h"

namespace bench {
namespace {

using host::Period;
using host::PeriodNumber;
using namespace common::literals;

constexpr TAVDT kBegin{2016, 1, 1, 0, 0, 0};

class KeepingStream final : public HostStream {
 public:
  bool Message(const char*, const char*, unsigned) override { return true; }
  bool Write(const void* data, unsigned length) override {
    const auto* bytes = static_cast<const std::uint8_t*>(data);
    pieces.emplace_back(bytes, bytes + length);
    return true;
  }
  std::vector<std::vector<std::uint8_t>> pieces;
};

// The floating-point columns of a record, in their order.
using Values = std::array<double, 16>;
constexpr std::size_t kMeans = 7;  // pressures and temperatures; volumes and the rest add up
static_assert(tav::RecordSize(older::kArchiveLayout523) == 12 + sizeof(float) * Values().size());

double Rounded(double value) { return std::round(value * 1000) / 1000; }

// Weather and use of a building, without the same value twice in a row.
Values HourValues(PeriodNumber hour, int instrument) {
  const double day = static_cast<double>(hour % 24) / 24;
  const double year = static_cast<double>(hour % 8766) / 8766;
  const double phase = 0.1 * instrument + 0.01 * static_cast<double>(hour % 89);
  const double cold = 1 + std::cos(6.2832 * year) + 0.2 * std::sin(6.2832 * day + phase);
  const double flow = 4 + 0.3 * std::sin(phase);
  const double t1 = 60 + 20 * cold, t2 = 40 + 8 * cold;
  const double m1 = flow * 0.977, m2 = m1 * 0.995;
  Values values{5.5,  4.2,         t1, t2, 55 + cold, 5.1,     8 - 12 * cold,
                flow, flow * 0.99, 0,  m1, m2,        m1 - m2, m1 * (t1 - t2) / 1000,
                1,    0.02 * flow};
  for (double& value : values) value = Rounded(value);
  return values;
}

// Hours that the instrument did not answer for: three in about 200 days.
bool IsMissing(PeriodNumber hour, const ArchiveSize& size) {
  return size.gaps && (hour + 97 * size.instrument) % 4801 < 3;
}

std::array<std::uint8_t, 76> RecordOf(const TAVDT& time, const Values& values) {
  std::array<std::uint8_t, 76> record{};
  std::memcpy(record.data(), &time, sizeof time);
  record[11] = 1;  // the mode
  std::uint8_t* place = &record[12];
  for (const double value : values) {
    const auto single = static_cast<float>(value);
    std::memcpy(place, &single, sizeof single);
    place += sizeof single;
  }
  return record;
}

class Maker {
 public:
  explicit Maker(const ArchiveSize& size) : size_(size), driver_(&stream_, nullptr), out_(driver_) {
    common::SetText(driver_.typeText, "УРМ523"_w);
    common::SetText(driver_.versionText, "V1");
    common::SetText(driver_.numberText, fmt::format("{}", 12'000'000 + size.instrument).c_str());
  }

  MeterArchive Make() {
    Write(tav::TitleKind::kHourly, Period::kHour);
    if (size_.sums) Write(tav::TitleKind::kDaily, Period::kDay);
    if (size_.sums) Write(tav::TitleKind::kMonthly, Period::kMonth);
    made_.pieces = std::move(stream_.pieces);
    return std::move(made_);
  }

 private:
  void Write(tav::TitleKind kind, Period period) {
    const TAVDT end{static_cast<std::uint16_t>(kBegin.year + size_.years), 1, 1, 0, 0, 0};
    out_.Title(kind, "ТВ1"_w, end);
    out_.Layout(older::kArchiveLayout523, {"кг/см2"_w, "ГКал"_w}, tav::ColumnCount::kLeftOut);
    host::SectionAccount account{.kind = kind, .section = "ТВ1"};
    const PeriodNumber last = host::NumberOf(period, end).value();
    for (PeriodNumber i = host::NumberOf(period, kBegin).value(); i < last; ++i) {
      const TAVDT time = host::StartOf(period, i);
      if (period == Period::kHour && IsMissing(i, size_)) {
        account.missing.push_back({time, time});
      } else {
        out_.RowMarker();
        out_.Data(RecordOf(time, ValuesOf(period, i)));
        ++made_.records;
      }
    }
    out_.EndMarker();
    made_.accounts.push_back(std::move(account));
  }

  Values ValuesOf(Period period, PeriodNumber number) const {
    const PeriodNumber first = HourOf(period, number);
    const PeriodNumber end = HourOf(period, number + 1);
    Values sums{};
    for (PeriodNumber hour = first; hour < end; ++hour) {
      const Values values = HourValues(hour, size_.instrument);
      for (std::size_t i = 0; i < sums.size(); ++i) sums[i] += values[i];
    }
    for (std::size_t i = 0; i < kMeans; ++i) sums[i] /= static_cast<double>(end - first);
    return sums;
  }

  static PeriodNumber HourOf(Period period, PeriodNumber number) {
    return host::NumberOf(Period::kHour, host::StartOf(period, number)).value();
  }

  ArchiveSize size_;
  KeepingStream stream_;
  TKSplDrv driver_;
  tav::RecordStream out_;
  MeterArchive made_;
};

}  // namespace

MeterArchive MakeMeterArchive(const ArchiveSize& size) { return Maker(size).Make(); }

void Read(const MeterArchive& archive, const ArchiveSize& size, host::RunListener& listener) {
  host::Run run{host::ReadSettings{}, "tcp:gateway:4001", {2026, 1, 0, 1, 0, 0, 0, 0}};
  run.settings->number = size.instrument;
  listener.BeginRun(run);
  host::Receiver receiver(listener);
  for (const auto& piece : archive.pieces) {
    receiver.Write(piece.data(), static_cast<unsigned>(piece.size()));
  }
  host::RunEnd end;
  end.counts = receiver.Finish();
  end.reason = receiver.Status().refusal;
  end.accounts = archive.accounts;
  if (!end.reason.empty()) throw std::runtime_error(end.reason);
  listener.EndRun(end);
}

}  // namespace bench
