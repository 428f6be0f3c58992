#include "host/reading/receiver.h"

#include <doctest/doctest.h>

#include <stdexcept>

#include "host/reading/broadcast.h"
#include "host/reading/kept_stream.h"
#include "tests/host/stream_writer.h"

using namespace host_test;

namespace {

// Writes down all that it is told; throws at rows where it is told to.
class Witness final : public host::RunListener {
 public:
  explicit Witness(std::string& lines, bool throws = false) : lines_(lines), throws_(throws) {}
  void BeginRun(const host::Run& run) override { Note("begin run " + run.line); }
  void AddPiece(host::ByteView piece) override { pieces_ += piece.size(); }
  void BeginSection(const host::Section&) override { Note("begin"); }
  void AddRow(const host::Section&, const host::Cells&) override {
    Note("row after " + std::to_string(pieces_) + " bytes");
    if (throws_) throw std::runtime_error("no space left");
  }
  void EndSection(const host::Section&) override { Note("end"); }
  void Tell(const host::Message& message) override {
    Note(message.subject + ' ' + message.detail + ' ' + std::to_string(message.code));
  }
  void ShowProgress(const host::Progress& progress) override {
    Note(std::to_string(progress.percent) + " % " + progress.step);
  }
  void Keep() override { Note("keep"); }
  void EndRun(const host::RunEnd& end) override {
    Note("end run " + std::to_string(end.counts.rows) + ' ' + end.reason);
  }

 private:
  void Note(const std::string& line) { lines_ += line + '\n'; }

  std::string& lines_;
  bool throws_;
  std::size_t pieces_ = 0;
};

Pieces Current() { return StreamWriter().Title('O', "").Header("a", 'B', 1).Row({{1}}); }

bool WriteAll(host::Receiver& receiver, const Pieces& pieces) {
  bool all = true;
  for (const Bytes& piece : pieces) {
    all = receiver.Write(piece.data(), static_cast<unsigned>(piece.size())) && all;
  }
  return all;
}

}  // namespace

TEST_CASE("the receiver tells what comes in and keeps what the messages say") {
  std::string lines;
  Witness witness(lines);
  host::Receiver receiver(witness);
  receiver.Message("Start Read", "Hour \xCE\xC2", 0);
  receiver.Pulse(7);
  CHECK(WriteAll(receiver, Current()));
  receiver.Message("04.09.2016:13", "Date:hour", 0);
  receiver.Message("1 Error: 12", "PoitkaArh", 0);
  receiver.Message("", "", 1);
  receiver.Pulse(-1);
  CHECK(receiver.Status().lastError == "PoitkaArh: 1 Error: 12 (no reply)");
  CHECK(!receiver.WaitForEnd(std::chrono::milliseconds(0)));
  receiver.Message("OK", "ReadStop", 0);
  receiver.Message("2016.09.04:13.05.09", "Opros End", 0);
  CHECK(receiver.WaitForEnd(std::chrono::milliseconds(0)));
  CHECK(receiver.Status().succeeded == true);
  CHECK(receiver.Finish().rows == 1);
  CHECK(lines ==
        "Hour ОВ Start Read 0\nkeep\n7 % hours ОВ\nbegin\nrow after 35 bytes\n"
        "Date:hour 04.09.2016:13 0\nPoitkaArh 1 Error: 12 0\n  1\n"
        "keep\n-1 % hours ОВ: 04.09.2016:13\nReadStop OK 0\n"
        "Opros End 2016.09.04:13.05.09 0\nend\nkeep\n");
}

TEST_CASE("what cannot be kept is refused, and every record after it") {
  std::string lines;
  Witness disk(lines, true);
  host::Receiver receiver(disk);
  CHECK(WriteAll(receiver, Current()));
  CHECK(receiver.Message("x", "y", 0) == false);
  CHECK(receiver.Status().refusal == "no space left");
  CHECK(!receiver.Write("O", 1));
  receiver.Pulse(1);
  CHECK(receiver.Message("x", "Opros End", 0));
  CHECK(receiver.WaitForEnd(std::chrono::milliseconds(0)));
  receiver.Finish();
  CHECK(lines == "begin\nrow after 35 bytes\n1 % \nOpros End x 0\nend\n");
}

TEST_CASE("a kept stream is a run; where a listener throws, the others are told the ends") {
  for (const bool throws : {false, true}) {
    std::string first, second;
    host::Broadcast sinks;
    sinks.Add(std::make_unique<Witness>(first, throws));
    sinks.Add(std::make_unique<Witness>(second));
    const host::RunEnd end = host::RunKeptStream({Current(), "cut"}, "name", sinks);
    CHECK(end.ending == host::Ending::kFailed);
    CHECK(first == "begin run name\nbegin\nrow after 35 bytes\nend\n" +
                       std::string(throws ? "end run 1 no space left\n" : "keep\nend run 1 cut\n"));
    CHECK(second == (throws ? "begin run name\nbegin\nend\nend run 1 no space left\n" : first));
  }
}
