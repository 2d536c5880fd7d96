#pragma once
// The address entry of the mail-list window: what a press of Enter in an entry box does with the
// text typed or pasted there. Qt-free, so that it runs on any list and under the fuzzer.
#include <string>

namespace qc {

// A mail list as the entry sees it: the list control's items, add-item and current item.
class EntryList {
 public:
  virtual ~EntryList() = default;
  virtual long long Count() const = 0;
  virtual std::string Item(long long index) const = 0;
  virtual void Add(const std::string& item) = 0;
  virtual void MakeCurrent(long long index) = 0;
};

// Blanks go and the rest is lower-cased; "(a)(b)" reads as "a,b". Without a comma the address is
// added (unless listed) and made current. With commas each piece is added unless listed; ",," is
// removed, joining its neighbours; a last piece without a comma behind it is lost. The member
// box first appends a comma when the last but one character is none, and fails with the
// invalid-argument failure when fewer than two characters are left (the upload box has no such
// step). Pumps events inside ReplaceAll.
void EnterAddresses(const std::string& typed, bool memberBox, EntryList& list);

}  // namespace qc
