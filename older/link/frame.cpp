#include "older/link/frame.h"

namespace older {
namespace {

std::uint8_t Low(unsigned value) { return static_cast<std::uint8_t>(value & 0xFF); }

}  // namespace

std::array<std::uint8_t, kRequestSize> BuildRequest(std::uint8_t number, const Request& request) {
  const auto& p = request.parameters;
  std::array<std::uint8_t, kRequestSize> frame{
      kStartByte, number,  static_cast<std::uint8_t>(request.function), p[0], p[1], p[2], p[3],
      0,          kEndByte};
  Checksum(std::span(frame).first<kRequestSize - 1>());
  return frame;
}

Request MemoryRequest(std::uint16_t address, std::uint8_t count) {
  return {Function::kMemory, {Low(address), Low(address >> 8), count, 0}};
}

Request FlashRequest(std::uint16_t firstPage, std::uint8_t pages) {
  return {Function::kFlash, {Low(firstPage), Low(firstPage >> 8), pages, 0}};
}

Request ArchiveRequest(Function function, const SYSTEMTIME& date) {
  // 0x94 is -1900 modulo 256.
  Request request{function, {Low(date.wYear + 0x94U), Low(date.wMonth), Low(date.wDay), 0}};
  if (function == Function::kHourly) request.parameters[3] = Low(date.wHour);
  if (function == Function::kMonthly) request.parameters[2] = 0;
  return request;
}

std::uint8_t Checksum(std::span<std::uint8_t> frame) {
  unsigned sum = 0;
  for (const std::uint8_t byte : frame.subspan(1, frame.size() - 2)) sum += byte;
  frame.back() = static_cast<std::uint8_t>(~sum & 0xFF);
  return frame.back();
}

ExchangeError ErrorOfReply(std::uint8_t code) {
  if (code > 3) return ExchangeError::kReplyOther;
  return static_cast<ExchangeError>(static_cast<std::uint8_t>(ExchangeError::kReply0) + code);
}

void ConvertFloat(std::span<std::uint8_t, 4> value) {
  const unsigned high = value[2];
  const unsigned exponent = value[3];
  value[2] = Low((high & 0x7F) | ((exponent & 1) << 7));
  value[3] = Low((exponent >> 1) | (high & 0x80));
}

}  // namespace older
