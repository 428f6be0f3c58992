// The words of findings.
#pragma once

#include <string>

#include "host/checks/rules.h"

namespace host {

// About the records of a section.
Finding MakeFinding(const Rule& rule, const StoredSection& section);
// About the whole instrument.
Finding MakeFinding(const Rule& rule, const Subject& subject);

// Whether what lies between two times, both included, belongs to the selection.
bool IsMeant(const Selection& selection, const std::string& from, const std::string& to);

// "hour", "day", "month" of a kind of archives.
const char* WordOf(tav::TitleKind kind);

// "12.345 m3": seven digits, as many as the instruments have.
std::string NumberText(double value, const std::string& unit);
// "-0.25 %"; without an expected value by the difference itself.
std::string DifferenceText(double found, double expected);

// The part of a date that a record of a kind has: "2016-09-04 13:00", "2016-09-04", "2016-09"; all
// of it for other kinds.
std::string ShortDate(tav::TitleKind kind, const std::string& date);

}  // namespace host
