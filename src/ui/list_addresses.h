#pragma once
// A list control seen as an address list, for the full-box check: items in the code page.
#include "ui/list_box.h"
#include "client/address_list.h"
#include "client/window_system.h"

namespace qc {

class ListBoxAddresses : public AddressList {
 public:
  explicit ListBoxAddresses(ListBox& list) : list_(list) {}
  int Count() const override { return list_.ListCount(); }
  std::string Item(int index) const override { return ToCodePage(list_.List(index)); }
  void Remove(int index) override { list_.RemoveItem(index); }

 private:
  ListBox& list_;
};

}  // namespace qc
