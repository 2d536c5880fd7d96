#include "base/prompts.h"

#include <cstdio>
#include <cstdlib>

namespace qc {
namespace {
Prompts* gPrompts = nullptr;
}

Prompts& CurrentPrompts() {
  if (!gPrompts) {
    std::fprintf(stderr, "quillcast: a question was asked before any prompts were installed\n");
    std::abort();
  }
  return *gPrompts;
}

void SetPrompts(Prompts* prompts) { gPrompts = prompts; }

}  // namespace qc
