#pragma once
// The full-box check: one mail to every address of a list plus "-", which always fails, so that
// the client answers with its "Error" window; every address that the report names is removed.
#include <functional>
#include <string>

#include "client/address_list.h"
#include "client/window_system.h"

namespace qc {

// The shared steps of the silent check and the editor's command. The list is taken from `pick`
// at the start and again at the removal (the editor's active list may change during the wait).
// Returns the removed text: " - " + address + CR for each removed address.
// `reachedRemoval`, when given, tells whether the steps went through to the removal; they end
// early, with nothing to tell the user, on generation 2 and when the client has gone.
std::string RemoveFullBoxes(WindowSystem& ws, const std::function<AddressList&()>& pick,
                            bool* reachedRemoval = nullptr);
// The removal on the client's error report (blanks already stripped): every item that the
// lower-cased report holds followed by "-" goes; the walk ends at the count the list had when it
// began. Returns " - " + address + CR for each removed one.
std::string RemoveReported(const std::string& report, AddressList& list);
// The run's check on its send list: silent, the removed text is dropped.
void CheckFullBoxes(WindowSystem& ws, AddressList& list);

}  // namespace qc
