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

// From here on, Ctrl-C and a request to terminate are counted; the second one ends the process at
// once with exit code 130.
void CountInterrupts();
bool Interrupted();

}  // namespace host
