#include "app/console/program.h"

int main(int argc, char* argv[]) {
  return consoleProgram(
      [&] { return std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc); });
}
