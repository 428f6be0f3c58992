// The tables of columns and the output stream, under their own names in this protocol.
#pragma once

#include "driver/column.h"
#include "driver/record_stream.h"

namespace older {

using tav::ChosenUnits;
using tav::Column;
using tav::ColumnCount;
using tav::Columns;
using tav::ReadGroup;
using tav::RecordSize;
using tav::RecordStream;
using tav::Role;
using tav::Table;
using tav::TitleKind;
using tav::Type;
using tav::Unit;
using tav::WidthOf;
using tav::WithRole;

}  // namespace older
