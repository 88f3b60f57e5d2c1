#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace tessara {

/// Serves each module file on a virtual port of its own until the process gets SIGINT, SIGTERM or
/// SIGHUP. Announces the ports, so that every program of this user finds them, and
/// prints a line for each: "COM100  /dev/pts/5  TESSARA U15 (tessara-15.json)". A port that a fault
/// unplugs prints "COM100  unplugged", and its line again when it comes back.
///
/// Returns 0 at the orderly end, and 2, with a message on `err`, if a file or a port cannot be
/// used.
int runSimulator(const std::vector<std::string>& moduleFiles, bool paced, std::ostream& out,
                 std::ostream& err);

}  // namespace tessara
