// What the program needs from the console it runs in.
#pragma once

#include <string>
#include <system_error>
#include <vector>

namespace host {

// UTF-8 and "\n" on the standard output. Once, at the start.
void SetUpConsole();

// The arguments without the program's name, in UTF-8.
std::vector<std::string> Arguments(int argc, char** argv);

// The system's words for an error, in UTF-8 and without a full stop.
std::string ErrorText(const std::error_code& error);

// Whether a progress bar can be drawn on the standard error.
bool ErrorIsTerminal();

// From here on, Ctrl-C, a request to terminate and the loss of the terminal are taken note of; the
// second one ends the process at once, with the exit code of the first.
void CountInterrupts();
bool Interrupted();
// Of the first one: 130, 143 or 129; 0 before it.
int InterruptExitCode();

}  // namespace host
