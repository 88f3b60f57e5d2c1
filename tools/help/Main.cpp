#include <iostream>

#include "tools/help/HelpBuilder.h"

int main(int argc, char** argv) {
  if (argc != 4) {
    std::cerr << "usage: modulinfo_build_help SOURCE_FOLDER LANGUAGE_FILE OUT_FOLDER\n";
    return 2;
  }
  const auto problems = tessara::buildHelp(argv[1], argv[2], argv[3]);
  for (const auto& problem : problems) {
    std::cerr << problem << '\n';
  }
  return problems.empty() ? 0 : 1;
}
