#include "host/store/database.h"

namespace host {

Database::Database(const std::string& address) : name_(ShownAddress(address)) {
  try {
    dialect_ = &Connect(session_, address);
  } catch (const soci::soci_error& error) {
    throw Failure("open", error);
  }
}

std::runtime_error Database::Failure(const char* action, const soci::soci_error& error) {
  std::string text("cannot ");
  text.append(action).append(1, ' ').append(name_).append(": ").append(ReasonOf(session_, error));
  return std::runtime_error(text);
}

void Database::Rollback() noexcept {
  try {
    session_ << "ROLLBACK";
  } catch (const std::exception&) {  // the database has done so itself, or is gone
  }
}

void Database::Write(const std::function<void()>& work) {
  try {
    session_ << dialect_->begin;
    work();
    session_ << "COMMIT";
  } catch (const soci::soci_error& error) {
    const std::runtime_error failure = Failure("write", error);
    Rollback();
    throw failure;
  } catch (const std::exception&) {
    Rollback();
    throw;
  }
}

void Database::Read(const std::function<void()>& work) {
  try {
    work();
  } catch (const soci::soci_error& error) {
    throw Failure("read", error);
  }
}

}  // namespace host
