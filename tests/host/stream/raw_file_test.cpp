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
  std::string trouble;
  CHECK(Loaded(scratch / "raw", trouble) == pieces);
  CHECK(trouble.empty());

  const std::string text = scratch.Load("raw");
  struct Case {
    std::string content;
    std::size_t pieces;
    const char* trouble;  // a part of it
  };
  const Case cases[] = {
      {text.substr(0, text.size() - 1), 4, "is cut short after 4 pieces"},
      {text.substr(0, text.size() - 3), 4, "is cut short after 4 pieces"},
      {text.substr(0, text.size() - 5), 3, "is cut short after 3 pieces"},
      {text.substr(0, text.size() - 9), 3, "is cut short after 3 pieces"},
      {text.substr(0, 8), 0, "holds nothing"},
      {text.substr(0, 9), 0, "is cut short after 0 pieces"},
      {text + std::string("\1\0\x10\0x", 5), 5, "is damaged after 5 pieces"},
  };
  for (const Case& item : cases) {
    CAPTURE(item.trouble);
    scratch.Save("cut", item.content);
    CHECK(Loaded(scratch / "cut", trouble).size() == item.pieces);
    CHECK(trouble.find(item.trouble) != std::string::npos);
  }
}

TEST_CASE("files that are no raw files are refused or read without harm") {
  const ScratchFolder scratch;
  std::string trouble;
  for (const auto& path : {scratch / "none", scratch / "", std::filesystem::path("/dev/zero")}) {
    CHECK_THROWS_AS(host::RawFileReader{path}, std::runtime_error);
  }
  CHECK_THROWS_AS(host::RawFileWriter(scratch / "no/such/folder"), std::runtime_error);
  std::mt19937 random(4);
  for (int round = 0; round < 200; ++round) {
    std::string noise = round % 2 == 0 ? "IRVRAW1\n" : "";
    for (std::size_t i = random() % 60; i > 0; --i) {
      noise += static_cast<char>(random() % 3 == 0 ? random() : 0);
    }
    scratch.Save("noise", noise);
    if (round % 2 == 0) {
      Decoded(Loaded(scratch / "noise", trouble));
    } else {
      CHECK_THROWS_AS(host::RawFileReader{scratch / "noise"}, std::runtime_error);
    }
  }
}
