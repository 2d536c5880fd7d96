// The address entry of the mail lists on arbitrary typed text: the first byte chooses the box
// (member or upload) and how many items the list already holds; the rest is what was typed.
// Added items never hold a blank, a comma or a parenthesis and are never added twice (an entry
// of parentheses alone adds the empty text, as the entry does); the only failure is the member
// box's modelled one.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "base/failure.h"
#include "text/address_entry.h"

namespace {

class Entries : public qc::EntryList {
 public:
  long long Count() const override { return static_cast<long long>(items.size()); }
  std::string Item(long long index) const override {
    if (index < 0 || index >= Count()) std::abort();
    return items[static_cast<std::size_t>(index)];
  }
  void Add(const std::string& item) override { items.push_back(item); }
  void MakeCurrent(long long index) override {
    if (index < 0 || index >= Count()) std::abort();
    current = index;
  }
  std::vector<std::string> items;
  long long current = -1;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const bool member = (data[0] & 1) != 0;
  Entries list;
  for (int i = 0; i < (data[0] >> 1) % 4; ++i) list.items.push_back("known" + std::to_string(i));
  const std::size_t before = list.items.size();
  const std::string typed(reinterpret_cast<const char*>(data) + 1, size - 1);
  try {
    qc::EnterAddresses(typed, member, list);
  } catch (const qc::RuntimeFailure& f) {
    if (!member || f.number() != qc::kInvalidArgument) std::abort();
    return 0;
  }
  for (std::size_t i = before; i < list.items.size(); ++i) {
    const std::string& item = list.items[i];
    if (item.find_first_of(" ,()") != std::string::npos) std::abort();
    for (std::size_t j = 0; j < i; ++j) {
      if (list.items[j] == item) std::abort();
    }
  }
  return 0;
}
