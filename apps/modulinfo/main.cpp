#include <exception>
#include <iostream>

#include "Commands.h"
#include "commandline/CommandLine.h"

namespace {

struct Run {
  tessara::ExitCode operator()(tessara::ExitCode code) const { return code; }
  template <class Chosen>
  tessara::ExitCode operator()(const Chosen& request) const {
    return tessara::run(request);
  }
};

}  // namespace

int main(int argc, char** argv) {
  try {
    const tessara::ExitCode code = std::visit(Run{}, tessara::parseCommandLine(argc, argv));
    if (std::cout.flush()) return static_cast<int>(code);
    std::cerr << "modulinfo: standard output cannot be written\n";
  } catch (const std::exception& error) {
    std::cerr << "modulinfo: " << error.what() << '\n';
  }
  return static_cast<int>(tessara::ExitCode::Failed);
}
