#pragma once
// Waits in the system never give up. Tests run them under a budget of pump passes that throws
// BudgetExhausted when spent, so that a wait that would hang fails the test instead.
#include <cstdint>
#include <stdexcept>
#include <string>

#include "base/pump.h"

namespace qc::test {

struct BudgetExhausted : std::runtime_error {
  using std::runtime_error::runtime_error;
};

class PumpBudget {
 public:
  explicit PumpBudget(std::uint64_t passes);
  ~PumpBudget();
  PumpBudget(const PumpBudget&) = delete;
  PumpBudget& operator=(const PumpBudget&) = delete;

 private:
  std::uint64_t limit_;
  std::uint64_t used_ = 0;
  PumpHookId hook_;
};

// A virtual clock installed for the lifetime of the object.
class VirtualTime {
 public:
  explicit VirtualTime(double timeOfDay = 12 * 3600.0, double maxStep = 0.01)
      : clock_(timeOfDay, maxStep), scoped_(clock_) {}
  VirtualClock& clock() { return clock_; }

 private:
  VirtualClock clock_;
  ScopedClock scoped_;
};

}  // namespace qc::test
