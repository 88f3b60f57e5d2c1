#include "linux/PortProblems.h"

#include <cerrno>
#include <iostream>

namespace tessara {

void printPortProblem(const std::string& problem) {
  std::cerr << program_invocation_short_name << ": " << problem << '\n';
}

}  // namespace tessara
