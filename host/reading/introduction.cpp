#include "host/reading/introduction.h"

namespace host {

ReadSettings Question(const ReadSettings& settings, const Way& way) {
  ReadSettings question;
  question.number = settings.number;
  question.kind = way.kind;
  question.baud = way.baud;
  question.groups.clear();
  question.attempts = 1;
  question.from = settings.from;
  question.to = settings.to;
  return question;
}

void Introduction::Tell(const Message& message) {
  messages_.Tell(message);
  const std::lock_guard lock(mutex_);
  if (message.subject == "Tip") model_ = message.detail;
  if (message.subject == "Version") version_ = message.detail;
  if (message.subject == "Numer") serial_ = message.detail;
}

}  // namespace host
