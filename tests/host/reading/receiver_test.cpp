#include "host/reading/receiver.h"

#include <doctest/doctest.h>

#include "host/reading/broadcast.h"
#include "host/reading/kept_stream.h"
#include "tests/host/stream_writer.h"

using namespace host_test;

namespace {

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
  std::string text;
  Told told(text);
  host::Receiver receiver(told);
  receiver.Message("Start Read", "Hour \xCE\xC2", 0);
  receiver.Pulse(7);
  CHECK(WriteAll(receiver, Current()));
  receiver.Message("04.09.2016:13", "Date:hour", 0);
  receiver.Message("1 Error: 12", "PoitkaArh", 0);
  receiver.Message("", "", 1);
  receiver.Pulse(-1);
  CHECK(receiver.Status().lastError == "an archive record could not be read: no reply");
  CHECK(!receiver.WaitForEnd(std::chrono::milliseconds(0)));
  receiver.Message("OK", "ReadStop", 0);
  receiver.Message("2016.09.04:13.05.09", "Opros End", 0);
  CHECK(receiver.WaitForEnd(std::chrono::milliseconds(0)));
  CHECK(receiver.Status().succeeded == true);
  CHECK(receiver.Finish().rows == 1);
  CHECK(text ==
        "Hour ОВ Start Read 0\nkeep\n7 % hours ОВ\nbegin O a:B\nrow 1\nDate:hour 04.09.2016:13 0\n"
        "PoitkaArh 1 Error: 12 0\n  1\nkeep\n-1 % hours ОВ: 04.09.2016:13\nReadStop OK 0\n"
        "Opros End 2016.09.04:13.05.09 0\nend\nkeep\n");
}

TEST_CASE("what cannot be kept is refused, and every record after it") {
  std::string text;
  Told disk(text, true);
  host::Receiver receiver(disk);
  CHECK(WriteAll(receiver, Current()));
  CHECK(!receiver.Message("x", "y", 0));
  CHECK(receiver.Status().refusal == "no space left");
  CHECK(!receiver.Write("O", 1));
  receiver.Pulse(1);
  CHECK(receiver.Message("x", "Opros End", 0));
  CHECK(receiver.WaitForEnd(std::chrono::milliseconds(0)));
  receiver.Finish();
  CHECK(text == "begin O a:B\nrow 1\n1 % \nOpros End x 0\nend\n");
}

TEST_CASE("a kept stream is a run; where a listener throws, the others are told the ends") {
  for (const bool throws : {false, true}) {
    std::string first, second;
    host::Broadcast sinks;
    sinks.Add(std::make_unique<Told>(first, throws));
    sinks.Add(std::make_unique<Told>(second));
    PieceList kept(Current(), "cut");
    const host::RunEnd end = host::RunKeptStream(kept, "name", sinks);
    CHECK(end.ending == host::Ending::kFailed);
    const std::string last = throws ? "end run 1 no space left\n" : "keep\nend run 1 cut\n";
    CHECK(first == "begin run name\nbegin O a:B\nrow 1\nend\n" + last);
    CHECK(second == (throws ? "begin run name\nbegin O a:B\nend\n" + last : first));
  }
}
