#pragma once
// Kills a child process at random points of a piece of work, to show what a crash leaves behind.
#include <functional>

namespace qc::test {

struct KillCounts {
  int killed = 0;    // children killed before they were done
  int finished = 0;  // children that were done before the kill came
};

// Measures how long `work` takes in a child process, then forks children that do `work` and kills
// each (SIGKILL) after a random part of that time, until `kills` of them were killed before they
// were done (or five times as many rounds); `check` runs after each round, with `killed` telling
// whether the kill came first.
KillCounts KillAtRandomPoints(int kills, const std::function<void()>& work,
                              const std::function<void(bool killed)>& check);

}  // namespace qc::test
