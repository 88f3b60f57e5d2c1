#include <iostream>

#include "Commands.h"
#include "simulator/RunSimulator.h"

namespace tessara {

ExitCode run(const SimulateRequest& request) {
  return static_cast<ExitCode>(
      runSimulator(request.moduleFiles, request.isPaced, std::cout, std::cerr));
}

}  // namespace tessara
