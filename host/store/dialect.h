// What differs between the databases: types, settings, the beginning of a transaction, and how they
// tell what went wrong. All other statements are the same for both. sqlite.cpp and postgres.cpp
// hold the two.
#pragma once

#include <soci/soci.h>

#include <string>

namespace host {

struct Dialect {
  const char* identity;     // type of a key that the database counts up
  const char* integer;      // 8 bytes
  const char* real;         // single precision at least
  const char* wideReal;     // double precision
  const char* time;         // a date of the calendar with a time of day, without a zone
  const char* keyed;        // ends a table that is stored in the order of its primary key
  const char* begin;        // a transaction that will write
  const char* schemaBegin;  // run in it before tables are made: no other program makes them now
  const char* hasVersion;   // counts the tables that tell the version
  const char* dropView;     // before the name
};

// "postgresql://..." or "postgres://..." rather than a file.
bool IsServer(const std::string& address);

// The address without what must not be shown: a password.
std::string ShownAddress(const std::string& address);

// Opens and sets up a session. Throws soci::soci_error, and as
// OpenServer in backends.h.
const Dialect& Connect(soci::session& session, const std::string& address);

// The database's own words for what went wrong last, one line.
std::string ReasonOf(soci::session& session, const soci::soci_error& error);

}  // namespace host
