#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "drivers/hart/HartParser.h"
#include "drivers/hart/HartTimings.h"

namespace tessara {

/// True if `frame` is the answer to the master's `request`: from the module that was asked, to the
/// same master, to the same command, and with an extended command to the same number, unless the
/// module did not understand which it was.
bool isHartAnswer(const HartFrame& frame, const HartFrame& request);

/// What a frame that is not an answer to `request` says about the missing one: "no answer, only one
/// from address A1 23 0A 0B 0C". Nothing if it does not concern this master.
std::optional<std::string> hartMismatch(const HartFrame& frame, const HartFrame& request);

/// How long the primary master leaves the line to others after what has just come:
///
/// | what has come                            | how long                         |
/// |------------------------------------------|----------------------------------|
/// | a damaged frame                          | RT1                              |
/// | the other master's request               | RT1, because it gets an answer   |
/// | an answer to this master                 | RT2; RT1 if a module is bursting |
/// | an answer to the other master            | not at all                       |
/// | a burst frame to this master             | RT1                              |
/// | a burst frame to the other master        | not at all                       |
std::chrono::milliseconds hartPauseAfter(const HartReception& reception, bool isBursting,
                                         const HartTimings& timings);

}  // namespace tessara
