// Frames of the line for people and programs.
#pragma once

#include <optional>
#include <string>

#include "host/frames/frame.h"

namespace host {

// "10 01 4F"; of more than most bytes the first ones and "...".
std::string BytesText(ByteView bytes, std::size_t most);

// "> ask clock", "< reply 6 bytes, checksum right: clock". The sign is the direction, blank for
// frames that told none; the class stands in brackets where the text does not begin with it.
std::string FrameLine(const frames::Frame& frame);

// That line and below it one for each label: offset, bytes, name, meaning. bytes: of the frame;
// offsets count from its first byte.
std::string FrameText(const frames::Frame& frame, ByteView bytes);

// An object on a line: t in milliseconds, if it is known, direction (sent, received or null),
// class, summary, bytes in hex, labels: objects of at, count, bytes, name, meaning.
std::string FrameJson(const frames::Frame& frame, ByteView bytes, std::optional<long long> ms);

}  // namespace host
