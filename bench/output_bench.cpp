// Records a second from the driver's stream into CSV files.
#include <benchmark/benchmark.h>

#include <array>
#include <cstring>
#include <filesystem>
#include <vector>

#include "driver/record_stream.h"
#include "driver/tkspl_drv.h"
#include "host/output/csv_folder.h"
#include "host/reading/receiver.h"

namespace {

constexpr int kRows = 10'000;

constexpr tav::Column kColumns[] = {
    {"DT", tav::Type::kDateTime, "date", tav::Role::kKey},
    {"SP", tav::Type::kByte, "code"},
    {"t1", tav::Type::kFloat, "'C"},
    {"t2", tav::Type::kFloat, "'C"},
    {"V1", tav::Type::kFloat, "m3"},
    {"V2", tav::Type::kFloat, "m3"},
    {"V3", tav::Type::kFloat, "m3"},
    {"M1", tav::Type::kFloat, "t"},
    {"M2", tav::Type::kFloat, "t"},
    {"M3", tav::Type::kFloat, "t"},
    {"Q", tav::Type::kFloat, "Gcal"},
    {"NS", tav::Type::kByte, "code"},
};

// Keeps the write calls of an hourly section of kRows rows.
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

std::vector<std::vector<std::uint8_t>> Pieces() {
  KeepingStream stream;
  TKSplDrv driver(static_cast<HostStream*>(&stream), nullptr);
  tav::RecordStream out(driver);
  out.Title(tav::TitleKind::kHourly, "1", {2016, 3, 2, 12, 10, 0});
  out.Layout(kColumns, {}, tav::ColumnCount::kAnnounced);
  std::array<std::uint8_t, tav::RecordSize(kColumns)> row{0xE0, 0x07, 3, 2, 1, 0, 0};
  for (int i = 0; i < kRows; ++i) {
    for (std::size_t at = 8; at < row.size() - 1; at += 4) {
      const float value = static_cast<float>(i) * 0.37F + static_cast<float>(at);
      std::memcpy(&row[at], &value, sizeof value);
    }
    out.RowMarker();
    out.Data(row);
  }
  out.EndMarker();
  return stream.pieces;
}

void DecoderAndCsv(benchmark::State& state) {
  const auto pieces = Pieces();
  const auto folder = std::filesystem::temp_directory_path() / "irvela-bench";
  for ([[maybe_unused]] auto _ : state) {
    std::filesystem::remove_all(folder);
    host::CsvFolder csv(folder);
    host::Receiver receiver(csv);
    for (const auto& piece : pieces) {
      receiver.Write(piece.data(), static_cast<unsigned>(piece.size()));
    }
    receiver.Finish();
  }
  std::filesystem::remove_all(folder);
  state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(DecoderAndCsv)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
