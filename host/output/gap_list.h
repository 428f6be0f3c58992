// Which records of the store's archives are there and which are not, for people and programs.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/store/coverage.h"

namespace host {

// Below a line for each instrument one for each of its archives, "hours  ТВ1  700 of 744 kept", and
// one for each state of records that are not there, with their dates; no wider than so many
// characters.
std::string GapsText(const std::vector<SectionCoverage>& archives, std::size_t width);

// A list of objects, one an archive and line: serial, model, place, kind, section, from, to,
// expected, kept, missing, absent, unasked, and ranges: objects of state, from, to, records, and
// for what is absent learnt.
std::string GapsJson(const std::vector<SectionCoverage>& archives);

// "УРМ523, number 12822465, read at tcp:gateway:4001, number 1", and what it is of: those of one
// instrument stand one behind the other.
std::string InstrumentLine(const StoredSection& section);

// For people: "kept", "no answer", "not held", "not asked for".
const char* WordOf(RecordState state);

// "2016-09-01 03:00 to 05:00", as exactly as the archive has its dates.
std::string PeriodsText(const StoredSection& section, const PeriodRange& periods);

}  // namespace host
