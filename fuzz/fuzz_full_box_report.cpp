// The full-box check's reading of the client's error report on arbitrary text: the first piece
// of the input (cut at 0x00 bytes) is the report, the others the list. Exactly the items that
// the report, lower-cased as code-page text, names followed by "-" go, the others stay in order, and the removed
// text lists the ones that went.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "client/address_list.h"
#include "client/full_box.h"
#include "client/window_routines.h"
#include "fuzz_pieces.h"
#include "text/text.h"

namespace {

class Addresses : public qc::AddressList {
 public:
  int Count() const override { return static_cast<int>(items.size()); }
  std::string Item(int index) const override {
    if (index < 0 || index >= Count()) std::abort();
    return items[static_cast<std::size_t>(index)];
  }
  void Remove(int index) override {
    if (index < 0 || index >= Count()) std::abort();
    items.erase(items.begin() + index);
  }
  std::vector<std::string> items;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::vector<std::string> pieces = Pieces(data, size, 17);
  const std::string report = pieces[0];
  Addresses list;
  list.items.assign(pieces.begin() + 1, pieces.end());
  const std::string folded = qc::LowerCodePage(report);  // the report is code-page text

  std::vector<std::string> kept, gone;
  for (const auto& item : list.items) {
    (qc::InStr(folded, item + "-") > 0 ? gone : kept).push_back(item);
  }
  const std::string removed = qc::RemoveReported(report, list);
  if (list.items != kept) std::abort();
  std::string expected;
  for (const auto& item : gone) expected += " - " + item + "\r";
  if (removed != expected) std::abort();
  return 0;
}
