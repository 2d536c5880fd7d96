#pragma once
// The driver routines that scenario files name, called with the words behind the name. Texts are
// the program's own (UTF-8) and reach the routine in the client's code page, as the program hands
// them over; what a routine gives back (a generation, a screen name, the addresses a full-box
// check leaves) is its result.
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "client/address_list.h"
#include "client/window_system.h"

namespace qc::test {

using Words = std::vector<std::string>;

class AddressVector : public AddressList {
 public:
  int Count() const override { return static_cast<int>(items.size()); }
  std::string Item(int index) const override { return items.at(static_cast<std::size_t>(index)); }
  void Remove(int index) override { items.erase(items.begin() + index); }
  Words items;
};

using DriverRoutine = std::function<std::string(WindowSystem&, const Words& args, AddressVector&)>;
const std::map<std::string, DriverRoutine>& DriverRoutines();

// Plays the routine that the first word of `run` names with the words behind it. `hung` tells
// whether a wait in it outlived the caller's budget (BudgetExhausted); an unknown name fails.
std::string RunRoutine(WindowSystem& ws, const Words& run, AddressVector& list, bool& hung);

}  // namespace qc::test
