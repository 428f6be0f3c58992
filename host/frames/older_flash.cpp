#include "host/frames/older_flash.h"

#include <fmt/format.h>

#include "TKSplDrv/conversions.h"
#include "host/stream/cell.h"

namespace host::frames {
namespace {

// Pieces of what stands from an area's start on, as far as it is known: of text items and log
// entries that are not whole, the names alone.
using AreaPieces = std::vector<Piece> (*)(const Context& context, const struct FlashArea& area,
                                          ByteView known);

struct FlashArea {
  std::size_t begin;  // byte address
  std::size_t size;
  std::string name;
  tav::Columns columns;
  const older::Log* log;  // null: a database
  AreaPieces pieces;
};

// Of known bytes; empty where some of them are missing.
ByteView Part(ByteView known, std::size_t at, std::size_t count) {
  return at + count <= known.size() ? known.subspan(at, count) : ByteView();
}

// --- Databases ---

std::string ItemValue(const tav::Column& column, ByteView item) {
  if (item.empty()) return {};
  Bytes value(column.width);
  const bool right = older::DecodeItem(column, item, value);
  const std::string text = ValueText(column, value);
  return right ? text : fmt::format("does not parse as {}", static_cast<char>(column.type));
}

std::vector<Piece> ItemPieces(const Context&, const FlashArea& area, ByteView known) {
  std::vector<Piece> pieces;
  std::size_t at = 0;
  for (const tav::Column& column : area.columns) {
    const std::size_t size = older::ItemSize(column);
    pieces.push_back({size, NameOf(column), ItemValue(column, Part(known, at, size))});
    at += size;
  }
  return pieces;
}

std::vector<Piece> RowPieces(const Context&, const FlashArea& area, ByteView known) {
  std::vector<Piece> pieces;
  std::size_t at = 0;
  for (const tav::Column& column : area.columns) {
    const ByteView item = Part(known, at + older::kRowText, older::kItemSize);
    pieces.push_back({older::kRowText, "not used"});
    pieces.push_back({older::kItemSize, NameOf(column), ItemValue(column, item)});
    pieces.push_back({older::kRowSize - older::kRowText - older::kItemSize, "not used"});
    at += older::kRowSize;
  }
  return pieces;
}

// The binary database of a 521.
std::vector<Piece> BinaryPieces(const Context& context, const FlashArea& area, ByteView known) {
  const std::uint8_t version = context.version;
  Bytes whole(known.begin(), known.end());
  whole.resize(sizeof(older::DatabasePages521));
  return PiecesOf(area.columns, whole, [version](ByteView bytes, std::span<std::uint8_t> record) {
    older::DatabasePages521 pages{};
    std::copy(bytes.begin(), bytes.end(), pages.begin());
    older::ConvertDatabase521(pages, version, record);
  });
}

// --- Logs ---

std::string LogDate(ByteView text) {
  if (text.empty()) return {};
  const std::string characters(text.begin(), text.end());
  return DateText(DtUrmToTav(characters.c_str()));
}

// What the driver makes of the bytes behind the date.
std::vector<Piece> RestPieces(const older::Log& log, const std::string& of, ByteView entry) {
  const std::size_t size = log.entrySize - older::kLogDateText;
  if (entry.empty()) return {{size, of}};
  const Bytes whole(entry.begin(), entry.end());
  auto pieces = PiecesOf(log.columns.subspan(1), entry.subspan(older::kLogDateText),
                         [&](ByteView bytes, std::span<std::uint8_t> record) {
                           Bytes changed(whole.begin(), whole.begin() + older::kLogDateText);
                           changed.insert(changed.end(), bytes.begin(), bytes.end());
                           log.convert(changed, record);
                         });
  for (Piece& piece : pieces) piece.name = fmt::format("{}, {}", of, piece.name);
  return pieces;
}

bool IsLogEnd(ByteView known, std::size_t at) {
  return at < known.size() && (known[at] == 0x00 || known[at] == 0xFF);
}

std::vector<Piece> LogPieces(const Context&, const FlashArea& area, ByteView known) {
  const older::Log& log = *area.log;
  std::vector<Piece> pieces;
  std::size_t at = 0;
  for (std::size_t entry = 1; entry <= older::kLogEntries; ++entry, at += log.entrySize) {
    if (IsLogEnd(known, at)) {
      pieces.push_back({area.size - at, "end of the log", "not used from here on"});
      break;
    }
    const std::string of = fmt::format("entry {}", entry);
    pieces.push_back(
        {older::kLogDateText, of + ", date", LogDate(Part(known, at, older::kLogDateText))});
    const auto rest = RestPieces(log, of, Part(known, at, log.entrySize));
    pieces.insert(pieces.end(), rest.begin(), rest.end());
  }
  return pieces;
}

// --- Areas of a model ---

void AddDatabase(std::vector<FlashArea>& areas, const older::Block& block, int system,
                 const std::string& name) {
  const std::size_t place = block.place[std::max(system - 1, 0)];
  const auto add = [&](std::size_t begin, std::size_t size, AreaPieces pieces) {
    areas.push_back({begin, size, name, block.columns, nullptr, pieces});
  };
  if (block.read == older::ReadDatabase521) {
    add(0, sizeof(older::DatabasePages521), BinaryPieces);
  } else if (block.read == older::ReadTextRows) {
    add(place * older::kFlashPageSize, block.columns.size() * older::kRowSize, RowPieces);
  } else {
    add(place, older::ItemsSize(block.columns), ItemPieces);
  }
}

void AddLogs(std::vector<FlashArea>& areas, const older::Model& model, int systems) {
  for (const older::LogSection& section : model.logs) {
    for (int system = 0; system < systems; ++system) {
      const bool changes = section.log.entrySize == older::kChangeLog.entrySize;
      const std::string name = changes ? "log of changes" : "log of situations";
      areas.push_back({section.place[system], section.log.entrySize * older::kLogEntries,
                       systems > 1 ? fmt::format("{} of heat system {}", name, system + 1) : name,
                       section.log.columns, &section.log, LogPieces});
    }
  }
}

std::vector<FlashArea> AreasOf(const older::Model& model) {
  std::vector<FlashArea> areas;
  const int systems = model.systems ? model.systems->count : 1;
  AddDatabase(areas, model.database.block, 0, "database");
  for (int system = 1; model.systems && system <= systems; ++system) {
    AddDatabase(areas, model.systems->database.block, system,
                fmt::format("database of heat system {}", system));
  }
  AddLogs(areas, model, systems);
  return areas;
}

// The pieces between two places, which may cut some.
std::vector<Piece> Cut(const std::vector<Piece>& pieces, std::size_t from, std::size_t to) {
  std::vector<Piece> part;
  std::size_t at = 0;
  for (const Piece& piece : pieces) {
    const std::size_t first = std::max(at, from);
    const std::size_t end = std::min(at + piece.count, to);
    at += piece.count;
    if (first >= end) continue;
    const bool goesOn = at > to && piece.meaning.empty();
    part.push_back({end - first, piece.name, goesOn ? "goes on in the next page" : piece.meaning});
  }
  if (at < to) part.push_back({to - std::max(at, from), "not used"});
  return part;
}

}  // namespace

OlderPlace FindFlash(const Context& context, unsigned firstPage, ByteView data) {
  OlderPlace place{"flash", older::kFlashPageSize};
  if (context.older == nullptr) return place;
  const std::size_t from = firstPage * older::kFlashPageSize;
  for (const FlashArea& area : AreasOf(*context.older)) {
    if (from < area.begin || from >= area.begin + area.size) continue;
    place.name = area.name;
    if (data.size() != older::kFlashPageSize) return place;
    Bytes known(from - area.begin, ' ');  // not read by this request
    known.insert(known.end(), context.flash.begin(), context.flash.end());
    known.insert(known.end(), data.begin(), data.end());
    const std::size_t to = known.size();
    place.pieces = Cut(area.pieces(context, area, known), to - data.size(), to);
    return place;
  }
  return place;
}

}  // namespace host::frames
