#include "support/budget.h"

namespace qc::test {

PumpBudget::PumpBudget(std::uint64_t passes) : limit_(passes) {
  hook_ = AddPumpHook([this] {
    if (++used_ > limit_) {
      throw BudgetExhausted("pump budget of " + std::to_string(limit_) + " passes spent");
    }
  });
}

PumpBudget::~PumpBudget() { RemovePumpHook(hook_); }

}  // namespace qc::test
