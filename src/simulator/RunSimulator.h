#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace tessara {

/// Serves each module file on a virtual port of its own until the process is told to end by SIGINT,
/// SIGTERM or SIGHUP. Announces the ports, so that every program of this user finds them, and
/// prints a line for each: "COM100  /dev/pts/5  TESSARA U15 (tessara-15.json)". A port that a fault
/// unplugs prints "COM100  unplugged", and its line anew when it comes back.
///
/// Gives 0 at the orderly end, and 2, with a text on `err`, if a file or a port cannot be had.
int runSimulator(const std::vector<std::string>& moduleFiles, bool paced, std::ostream& out,
                 std::ostream& err);

}  // namespace tessara
