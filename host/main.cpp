#include "host/cli/command_line.h"
#include "host/system/console.h"

int main(int argc, char** argv) {
  host::SetUpConsole();
  return host::RunProgram(host::Arguments(argc, argv));
}
