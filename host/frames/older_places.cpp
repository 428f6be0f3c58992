#include "host/frames/older_places.h"

#include <fmt/format.h>

#include "host/frames/older_flash.h"
#include "host/stream/cell.h"
#include "older/session/session.h"

namespace host::frames {
namespace {

using older::Function;
using older::Request;

unsigned WordIn(const Request& request) {
  return request.parameters[0] + 256U * request.parameters[1];
}

// --- Memory ---

std::vector<Piece> ClockPieces(ByteView data) {
  if (data.size() != older::kClockSize) return {};
  const TAVDT clock = older::DecodeClock(data.first<older::kClockSize>());
  return {{older::kClockSize, "clock", DateText(clock)}};
}

// A record that stands in the memory as its columns describe it.
std::vector<Piece> MemoryPieces(tav::Columns columns, ByteView data) {
  if (data.size() != tav::RecordSize(columns)) return {};
  return PiecesOf(columns, data, [columns](ByteView bytes, std::span<std::uint8_t> record) {
    std::copy(bytes.begin(), bytes.end(), record.begin());
    older::ConvertFloats(columns, record);
  });
}

// The columns of a 521's operative values that start at a name, as many as a piece of memory holds.
tav::Columns ColumnsFrom(std::string_view name, std::size_t count) {
  const tav::Columns all = older::kOperLayout521;
  const auto first =
      std::find_if(all.begin(), all.end(), [=](const auto& column) { return column.name == name; });
  return all.subspan(static_cast<std::size_t>(first - all.begin()), count);
}

struct MemoryBlock {
  unsigned address;
  tav::Columns columns;
  std::string name;
};

std::vector<MemoryBlock> BlocksOf521() {
  return {{older::kOperativeAddress521, ColumnsFrom("V1", older::kOperativeFloats521),
           "current values"},
          {older::kFlowsAddress521, ColumnsFrom("G1", older::kFlowFloats521), "current flows"}};
}

std::vector<MemoryBlock> BlocksOf(const older::Model& model) {
  if (&model == &older::kModel521) return BlocksOf521();
  constexpr const char* kNames[] = {"current values", "totals"};
  std::vector<MemoryBlock> blocks;
  const int systems = model.systems ? model.systems->count : 1;
  for (int system = 0; system < systems; ++system) {
    const std::string of = systems > 1 ? fmt::format(" of heat system {}", system + 1) : "";
    for (std::size_t i = 0; i < model.operative.blocks.size(); ++i) {
      const older::Block& block = model.operative.blocks[i];
      blocks.push_back(
          {block.place[system], block.columns, kNames[std::min<std::size_t>(i, 1)] + of});
    }
  }
  return blocks;
}

OlderPlace MemoryPlace(const Context& context, const Request& request, ByteView data) {
  const unsigned address = WordIn(request);
  const std::size_t count = request.parameters[2];
  if (context.older != nullptr) {
    if (address == context.older->identity.clock && count == older::kClockSize) {
      return {"clock", count, ClockPieces(data)};
    }
    for (const MemoryBlock& block : BlocksOf(*context.older)) {
      if (block.address != address || tav::RecordSize(block.columns) != count) continue;
      return {block.name, count, MemoryPieces(block.columns, data)};
    }
  }
  return {fmt::format("memory {}, {} bytes", Hex(address, 4), count), count};
}

// --- Archives ---

struct ArchiveName {
  Function function;
  older::ArchiveKind kind;
  const char* name;
  std::size_t dateDigits;  // of "2016-03-01 05:00"
};
constexpr ArchiveName kArchives[] = {
    {Function::kHourly, older::ArchiveKind::kHourly, "hour", 16},
    {Function::kDaily, older::ArchiveKind::kDaily, "day", 10},
    {Function::kMonthly, older::ArchiveKind::kMonthly, "month", 7},
};

const ArchiveName* FindArchive(Function function) {
  for (const ArchiveName& archive : kArchives) {
    if (archive.function == function) return &archive;
  }
  return nullptr;
}

OlderPlace ArchivePlace(const Context& context, const ArchiveName& archive, const Request& request,
                        ByteView data) {
  const auto& p = request.parameters;
  const std::string date = fmt::format("{:04}-{:02}-{:02} {:02}:00", 1900 + p[0], p[1], p[2], p[3]);
  OlderPlace place{fmt::format("{} {}", archive.name, date.substr(0, archive.dateDigits))};
  if (context.older == nullptr) return place;
  const older::ArchiveRecord& record =
      context.older->archives[static_cast<std::size_t>(archive.kind)].record;
  place.dataSize = record.replySize;
  if (data.size() == place.dataSize) {
    place.pieces = PiecesOf(record.columns, data, [&](ByteView bytes, std::span<std::uint8_t> to) {
      record.convert(record.columns, bytes, to);
    });
  }
  return place;
}

// --- Flash, identification ---

OlderPlace FlashPlace(const Context& context, const Request& request, ByteView data) {
  const unsigned page = WordIn(request);
  const unsigned count = request.parameters[2];
  OlderPlace place = FindFlash(context, page, data);
  if (!data.empty()) {
    const std::size_t which = page + context.flash.size() / older::kFlashPageSize;
    place.name = fmt::format("{}, flash page {}", place.name, which);
    return place;
  }
  place.name = count == 1
                   ? fmt::format("{}, flash page {}", place.name, page)
                   : fmt::format("{}, flash pages {} to {}", place.name, page, page + count - 1);
  return place;
}

std::vector<Piece> IdentificationPieces(const Context& context, ByteView data) {
  if (data.size() != 3) return {};
  if (context.older == nullptr) return {{2, "model", "none that the driver knows"}, {1, "version"}};
  const older::Identity& identity = context.older->identity;
  const char* version = older::VersionText(identity, data[2]);
  const std::string any = identity.versions.empty() ? fmt::format("V{}", data[2]) : "unknown";
  return {{2, "model", NameOf(*context.older)}, {1, "version", version != nullptr ? version : any}};
}

OlderPlace IdentificationPlace(const Context& context, const Request& request, ByteView data) {
  const int system = request.parameters[0];
  return {system == 0 ? "identification" : fmt::format("identification for heat system {}", system),
          older::kIdentificationSize - older::kReplyOverhead, IdentificationPieces(context, data)};
}

}  // namespace

Request RequestIn(ByteView frame) {
  return {static_cast<Function>(frame[2]), {frame[3], frame[4], frame[5], frame[6]}};
}

OlderPlace FindPlace(const Context& context, const Request& request, ByteView data) {
  if (const ArchiveName* archive = FindArchive(request.function)) {
    return ArchivePlace(context, *archive, request, data);
  }
  switch (request.function) {
    case Function::kIdentify:
      return IdentificationPlace(context, request, data);
    case Function::kMemory:
      return MemoryPlace(context, request, data);
    case Function::kFlash:
      return FlashPlace(context, request, data);
    default:
      return {fmt::format("function {}", Hex(static_cast<unsigned>(request.function)))};
  }
}

}  // namespace host::frames
