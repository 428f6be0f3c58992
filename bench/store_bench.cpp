// Archive rows that are stored a second: a 523's hours from the driver's write calls through
// receiver, decoder and store into an SQLite file, each commit on the disk.
//
//   store_bench FOLDER                          in a new file of the folder: its disk matters
//   store_bench --make FILE [METERS [YEARS]]    keeps hours, days and months of so many instruments
//                                               (100, ten years) with some gaps, for other
//                                               questions
#include <fmt/format.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/meter_archive.h"
#include "host/store/store.h"

namespace {

namespace fs = std::filesystem;

struct Took {
  double seconds = 0;    // on the clock
  double processor = 0;  // of the processor

  Took& operator+=(const Took& other) {
    seconds += other.seconds;
    processor += other.processor;
    return *this;
  }
};

// Opens the store, reads, and closes it.
Took Store(const bench::MeterArchive& archive, const bench::ArchiveSize& size,
           const fs::path& file) {
  const auto start = std::chrono::steady_clock::now();
  const std::clock_t processor = std::clock();
  bench::Read(archive, size, *host::MakeStoreSink(file.string(), [](const std::string&) {}));
  const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - start;
  return {wall.count(), static_cast<double>(std::clock() - processor) / CLOCKS_PER_SEC};
}

void Tell(const std::string& what, std::size_t records, const Took& took) {
  const auto count = static_cast<double>(records);
  fmt::print(
      "{:<12} {:>9} records  {:7.2f} s  {:7.0f} a second  {:5.2f} us of the processor each\n", what,
      records, took.seconds, count / took.seconds, took.processor / count * 1e6);
  std::fflush(stdout);
}

void TellSize(const fs::path& file, std::size_t records) {
  const auto bytes = static_cast<double>(fs::file_size(file));
  fmt::print("{:.1f} MB, {:.0f} bytes a record\n", bytes / 1e6,
             bytes / static_cast<double>(records));
}

void Remove(const fs::path& file) {
  for (const char* end : {"", "-wal", "-shm"}) fs::remove(file.string() + end);
}

void Measure(const fs::path& folder) {
  const fs::path file = folder / "store-bench.db";
  const bench::ArchiveSize size{.instrument = 1, .years = 10};
  const bench::MeterArchive archive = bench::MakeMeterArchive(size);
  for (int i = 0; i < 5; ++i) {
    Remove(file);
    Tell("new", archive.records, Store(archive, size, file));
  }
  Tell("as before", archive.records, Store(archive, size, file));
  TellSize(file, archive.records);
  Remove(file);
}

void Make(const fs::path& file, int meters, int years) {
  if (fs::exists(file)) throw std::runtime_error(file.string() + " is there");
  Took all;
  std::size_t records = 0;
  for (int i = 1; i <= meters; ++i) {
    const bench::ArchiveSize size{.instrument = i, .years = years, .sums = true, .gaps = true};
    const bench::MeterArchive archive = bench::MakeMeterArchive(size);
    const Took took = Store(archive, size, file);
    if (i % 10 == 0) Tell(fmt::format("meter {}", i), archive.records, took);
    all += took;
    records += archive.records;
  }
  Tell("all", records, all);
  TellSize(file, records);
}

int NumberAt(const std::vector<std::string>& arguments, std::size_t place, int otherwise) {
  return place < arguments.size() ? std::atoi(arguments[place].c_str()) : otherwise;
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  try {
    if (arguments.size() >= 2 && arguments[0] == "--make") {
      Make(arguments[1], NumberAt(arguments, 2, 100), NumberAt(arguments, 3, 10));
    } else if (arguments.size() == 1) {
      Measure(arguments[0]);
    } else {
      std::fputs("usage: store_bench FOLDER | --make FILE [METERS [YEARS]]\n", stderr);
      return 2;
    }
    return 0;
  } catch (const std::exception& error) {
    fmt::print(stderr, "store_bench: {}\n", error.what());
    return 1;
  }
}
