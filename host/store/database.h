// A connection to the store.
#pragma once

#include <soci/soci.h>

#include <functional>
#include <stdexcept>
#include <string>

#include "host/store/dialect.h"

namespace host {

class Database {
 public:
  // address: as in store.h. Throws std::runtime_error.
  explicit Database(const std::string& address);

  soci::session& Session() { return session_; }
  const Dialect& Own() const { return *dialect_; }
  // For people.
  const std::string& Name() const { return name_; }

  // All of the work or nothing of it. Throws std::runtime_error with one sentence.
  void Write(const std::function<void()>& work);
  // The same without a transaction.
  void Read(const std::function<void()>& work);

 private:
  std::runtime_error Failure(const char* action, const soci::soci_error& error);
  void Rollback() noexcept;

  std::string name_;
  soci::session session_;
  const Dialect* dialect_ = nullptr;
};

}  // namespace host
