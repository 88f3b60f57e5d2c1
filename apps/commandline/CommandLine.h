#pragma once

#include <variant>

#include "commandline/CommandRequest.h"
#include "commandline/PanelRequest.h"
#include "common/ExitCode.h"

namespace tessara {

// The command lines of both programs. Help and version are printed on standard output, complaints
// about wrong usage on standard error; the exit code then stands in place of a request.

/// `arguments` are those of main(), the name of the program included.
CommandRequest parseCommandLine(int count, const char* const* arguments);

std::variant<ExitCode, PanelRequest> parsePanelCommandLine(int count, const char* const* arguments);

}  // namespace tessara
