#pragma once
// A locale with a comma as its decimal point (de_DE.UTF-8) for the duration of a scope. Where the
// machine has no such locale it is compiled once into the build tree and found through LOCPATH.
#include <string>

namespace qc::test {

class CommaLocale {
 public:
  CommaLocale();  // fails the test when no comma locale can be had
  ~CommaLocale();
  CommaLocale(const CommaLocale&) = delete;
  CommaLocale& operator=(const CommaLocale&) = delete;
  bool active() const { return active_; }

 private:
  std::string saved_;
  bool active_ = false;
};

}  // namespace qc::test
