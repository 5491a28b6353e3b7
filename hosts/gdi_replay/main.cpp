#include <iostream>

#include "hosts/gdi_replay/replay.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: gdi-replay FOLDER\n"
                 "Replays the drawing cases in FOLDER/*.txt and compares pixels and values.\n";
    return 2;
  }
  return quenzel7::gdi_replay::ReplayFolder(argv[1], std::cout, std::cerr);
}
