#include <cstring>
#include <iostream>

int main(int argc, char** argv) {
  if (argc == 2 && std::strcmp(argv[1], "--version") == 0) {
    std::cout << "orlo " << ORLO_VERSION << "\n";
    return 0;
  }
  std::cerr << "usage: orlo --version\n";
  return 2;
}
