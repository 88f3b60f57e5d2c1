#include <iostream>
#include <string>
#include <vector>

#include "languagetool/LanguageCommand.h"

int main(int argc, char** argv) {
  return tessara::runLanguageCommand(std::vector<std::string>(argv + 1, argv + argc), std::cout,
                                     std::cerr);
}
