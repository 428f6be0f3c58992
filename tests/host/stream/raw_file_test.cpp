#include "host/stream/raw_file.h"

#include <doctest/doctest.h>

#include <random>

#include "tests/host/scratch_folder.h"
#include "tests/host/stream_writer.h"

using namespace host_test;

TEST_CASE("a raw file keeps the write calls, and a shortened one what it holds") {
  const ScratchFolder scratch;
  const Pieces pieces = {{'O'}, {}, Bytes(70000, 7), {1, 2}, {}};
  {
    host::RawFileWriter writer(scratch / "raw");
    for (const Bytes& piece : pieces) writer.Append(piece);
    writer.Flush();
  }
  const host::RawFile whole = host::LoadRawFile(scratch / "raw");
  CHECK(whole.pieces == pieces);
  CHECK(whole.trouble.empty());

  const std::string text = scratch.Load("raw");
  for (const std::size_t missing : {1U, 3U, 5U, 6U, 9U}) {
    CAPTURE(missing);
    scratch.Save("cut", text.substr(0, text.size() - missing));
    const host::RawFile cut = host::LoadRawFile(scratch / "cut");
    CHECK(cut.pieces.size() == (missing < 5 ? 4 : 3));
    CHECK(cut.trouble.find("cut short") != std::string::npos);
  }
}

TEST_CASE("files that are no raw files are refused or read without harm") {
  const ScratchFolder scratch;
  CHECK_THROWS_AS(host::LoadRawFile(scratch / "none"), std::runtime_error);
  CHECK_THROWS_AS(host::LoadRawFile(scratch / ""), std::runtime_error);
  CHECK_THROWS_AS(host::RawFileWriter(scratch / "no/such/folder"), std::runtime_error);
  std::mt19937 random(4);
  for (int round = 0; round < 200; ++round) {
    std::string noise = round % 2 == 0 ? "IRVRAW1\n" : "";
    for (std::size_t i = random() % 60; i > 0; --i) {
      noise += static_cast<char>(random() % 3 == 0 ? random() : 0);
    }
    scratch.Save("noise", noise);
    if (round % 2 == 0) {
      Decoded(host::LoadRawFile(scratch / "noise").pieces);
    } else {
      CHECK_THROWS_AS(host::LoadRawFile(scratch / "noise"), std::runtime_error);
    }
  }
}
