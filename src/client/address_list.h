#pragma once
// A list of addresses that the caller owns (the run's send list, the mail-list editor's list).
// The full-box check reads it and removes what the client reports as full or invalid. Items are
// code-page text, as the client's report is.
#include <string>

namespace qc {

class AddressList {
 public:
  virtual ~AddressList() = default;
  virtual int Count() const = 0;
  virtual std::string Item(int index) const = 0;
  virtual void Remove(int index) = 0;
};

}  // namespace qc
