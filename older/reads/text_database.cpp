#include "older/reads/text_database.h"

#include "older/reads/flash.h"
#include "older/reads/text_items.h"
#include "older/session/session.h"

namespace older {
namespace {

void DecodeItems(TKSplImpl& reader, Columns columns, std::span<const std::uint8_t> items,
                 std::span<std::uint8_t> record) {
  std::size_t from = 0;
  std::size_t to = 0;
  for (const Column& column : columns) {
    const auto item = items.subspan(from, ItemSize(column));
    if (!DecodeItem(column, item, record.subspan(to, column.width))) {
      reader.Say(ItemText(item), "Rasmernost");
    }
    from += item.size();
    to += column.width;
  }
}

ReadResult ReadDatabase(TKSplImpl& reader, const Block& block, int system,
                        std::span<std::uint8_t> record, ReadFlash readFlash) {
  FlashBuffer buffer;
  FlashRead items;
  const AttemptPlan plan{.name = block.attempts, .confirmation = ForOthers(reader.policy)};
  const ReadResult result = Attempt(
      reader.driver, reader.policy, plan,
      [&] {
        items = readFlash(reader, block.place[system - 1], ItemsSize(block.columns), buffer);
        return items.error;
      },
      [&] {
        // Whether it could be opened shows in the attempt that follows.
        if (block.reopensSession) ReopenSession(reader);
      });
  // After the attempts, so that an item that does not parse is told once.
  if (result.done) DecodeItems(reader, block.columns, items.data, record);
  return result;
}

}  // namespace

ReadResult ReadTextRows(TKSplImpl& reader, const Block& block, int system,
                        std::span<std::uint8_t> record) {
  return ReadDatabase(reader, block, system, record, ReadFlashRows);
}

ReadResult ReadTextItems(TKSplImpl& reader, const Block& block, int system,
                         std::span<std::uint8_t> record) {
  return ReadDatabase(reader, block, system, record, ReadFlashBytes);
}

}  // namespace older
