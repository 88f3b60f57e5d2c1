#include <iostream>

#include "tools/language/LanguageCommand.h"

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: modulinfo_build_language SOURCE OUT\n";
    return 2;
  }
  return tessara::runLanguageBuild(argv[1], argv[2], std::cerr) ? 0 : 1;
}
