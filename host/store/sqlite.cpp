#include <soci/sqlite3/soci-sqlite3.h>

#include <chrono>
#include <thread>

#include "host/store/backends.h"

namespace host {
namespace {

constexpr Dialect kSqlite = {
    .identity = "INTEGER PRIMARY KEY",
    .integer = "INTEGER",
    .real = "REAL",
    .wideReal = "REAL",
    .time = "TEXT",
    .keyed = " WITHOUT ROWID",
    // One that only becomes a writer later would fail at once when another one wrote meanwhile.
    .begin = "BEGIN IMMEDIATE",
    .schemaBegin = "SELECT 1",
    .hasVersion = "SELECT count(*) FROM sqlite_master WHERE name = 'store_version'",
    .dropView = "DROP VIEW IF EXISTS ",
};

// Two programs on one file wait for each other so long.
constexpr std::chrono::seconds kWait{30};

// SQLite itself does not wait where another program makes the same file.
void SetJournal(soci::session& session) {
  const auto end = std::chrono::steady_clock::now() + kWait;
  while (true) {
    try {
      std::string mode;
      session << "PRAGMA journal_mode = WAL", soci::into(mode);
      return;
    } catch (const soci::sqlite3_soci_error& error) {
      if (error.result() != SQLITE_BUSY || std::chrono::steady_clock::now() > end) throw;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
}

// A power cut loses nothing that was committed.
void SetUpFile(soci::session& session) {
  session << "PRAGMA busy_timeout = " << std::chrono::milliseconds(kWait).count();
  SetJournal(session);
  session << "PRAGMA synchronous = FULL";
}

std::string Quoted(const std::string& path) {
  std::string quoted("dbname=\"");
  return quoted.append(path).append("\"");
}

}  // namespace

const Dialect& OpenFile(soci::session& session, const std::string& path) {
  session.open(soci::sqlite3, Quoted(path));
  SetUpFile(session);
  return kSqlite;
}

std::string FileReason(soci::session& session) {
  if (!session.is_connected() || session.get_backend_name() != "sqlite3") return {};
  const auto* file = static_cast<soci::sqlite3_session_backend*>(session.get_backend());
  if (sqlite_api::sqlite3_errcode(file->conn_) == SQLITE_OK) return {};
  return sqlite_api::sqlite3_errmsg(file->conn_);
}

}  // namespace host
