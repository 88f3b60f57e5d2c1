#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace tessara {

/// Runs what stands behind `modulinfo language` and gives the exit code.
///
/// `check FILE...` writes to `out` what each language file would load as, section by section, and
/// what is wrong with which line. `build SOURCE OUT` makes the language file OUT from its source
/// and tells problems on `err`.
///
/// 0: all is well. 1: there are problems. 2: wrong usage, told on `err`.
int runLanguageCommand(const std::vector<std::string>& arguments, std::ostream& out,
                       std::ostream& err);

}  // namespace tessara
