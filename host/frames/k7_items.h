// What the items of a K7 reply mean, by its request and the driver's models.
#pragma once

#include "host/frames/context.h"
#include "host/frames/labels.h"

namespace host::frames {

// How an item's value is written.
enum class ItemForm { kColumn, kTime, kDate, kText, kUnused };

struct ItemMeaning {
  std::string name{};
  ItemForm form = ItemForm::kText;
  const tav::Column* column = nullptr;  // of kColumn
};

// A parameter on a channel.
ItemMeaning ParameterMeaning(const k7::Model* model, unsigned channel, unsigned number);
// What a request asks for: as many as it has references.
std::vector<ItemMeaning> MeaningsOf(const k7::Model* model, ByteView references);
// Of the values in a record of an archive kind; empty: not known.
std::vector<ItemMeaning> RecordMeanings(const k7::Model* model, unsigned kind);

// Puts items until the data end; those behind the meanings are nameless. size: of the data, which
// are the next bytes.
void PutItems(Labels& labels, std::size_t size, std::span<const ItemMeaning> meanings);
// The same for an archive reply: stamps and records, whose values have these meanings.
void PutRecords(Labels& labels, std::size_t size, std::span<const ItemMeaning> meanings);

// "2016-09-04 13:05" and the like.
std::string StampText(ByteView stamp);

}  // namespace host::frames
