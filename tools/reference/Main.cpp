#include <exception>
#include <fstream>
#include <iostream>

#include "tools/reference/Reference.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: modulinfo_write_reference OUT\n";
    return 2;
  }
  try {
    std::ofstream file(argv[1], std::ios::binary);
    file << tessara::reference(tessara::memberTable(), tessara::descriptions()) << std::flush;
    if (file) return 0;
    std::cerr << argv[1] << " cannot be written\n";
  } catch (const std::exception& error) {
    std::cerr << "modulinfo_write_reference: " << error.what() << '\n';
  }
  return 1;
}
