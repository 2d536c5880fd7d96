// quillcast-tag: the program's ID3v1 codec on the command line, for users who script.
#include <iostream>
#include <string>
#include <vector>

#include "catalogue/tagtool/tagtool.h"

int main(int argc, char** argv) {
  // Standard output is written in large pieces and flushed before every error line.
  std::ios::sync_with_stdio(false);
  const std::vector<std::string> args(argv + 1, argv + argc);
  return qc::tagtool::Run(args, std::cin, std::cout, std::cerr);
}
