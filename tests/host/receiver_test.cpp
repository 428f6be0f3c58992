#include "host/reading/receiver.h"

#include <doctest/doctest.h>

#include <stdexcept>

#include "tests/host/scratch_folder.h"
#include "tests/host/stream_writer.h"

using namespace host_test;

namespace {

class FullDisk final : public host::SectionListener {
 public:
  void Begin(const host::Section&) override {}
  void AddRow(const host::Section&, host::ByteView) override {
    throw std::runtime_error("no space left");
  }
  void End(const host::Section&) override {}
};

StreamWriter Current() {
  StreamWriter stream;
  stream.Title('O', "").Header("a", 'B', 1).Row({{1}}).End();
  return stream;
}

bool WriteAll(host::Receiver& receiver, const StreamWriter& stream) {
  bool all = true;
  for (const Bytes& piece : stream.Pieces()) {
    all = receiver.Write(piece.data(), static_cast<unsigned>(piece.size())) && all;
  }
  return all;
}

}  // namespace

TEST_CASE("the receiver keeps what the messages tell") {
  host::Progress progress;
  Told told;
  host::Receiver receiver(told, nullptr, progress, false);
  receiver.Message("Start Read", "Hour \xCE\xC2", 0);
  receiver.Message("04.09.2016:13", "Date:hour", 0);
  receiver.Message("1 Error: 12", "PoitkaArh", 0);
  CHECK(receiver.Status().step == "hours ОВ: 04.09.2016:13");
  CHECK(receiver.Status().lastError == "PoitkaArh: 1 Error: 12 (no reply)");
  CHECK(!receiver.WaitForEnd(std::chrono::milliseconds(0)));
  receiver.Message("OK", "ReadStop", 0);
  receiver.Message("2016.09.04:13.05.09", "Opros End", 0);
  CHECK(receiver.WaitForEnd(std::chrono::milliseconds(0)));
  CHECK(receiver.Status().succeeded == true);
}

TEST_CASE("what cannot be kept is refused, and every record after it") {
  host::Progress progress;
  FullDisk disk;
  host::Receiver receiver(disk, nullptr, progress, false);
  CHECK(!WriteAll(receiver, Current()));
  CHECK(receiver.Status().refusal == "no space left");
  CHECK(!receiver.Write("O", 1));
  CHECK(receiver.Message("x", "Opros End", 0));
  CHECK(receiver.WaitForEnd(std::chrono::milliseconds(0)));
  CHECK(receiver.Finish() == 0);
}

TEST_CASE("the raw file holds every write call") {
  const ScratchFolder scratch;
  host::Progress progress;
  Told told;
  {
    host::RawFileWriter raw(scratch / "raw");
    host::Receiver receiver(told, &raw, progress, false);
    CHECK(WriteAll(receiver, Current()));
    receiver.Finish();
  }
  CHECK(host::LoadRawFile(scratch / "raw").pieces == Current().Pieces());
  CHECK(told.lines == std::vector<std::string>{"begin O  a:B", "row 1", "end"});
}
