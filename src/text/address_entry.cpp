#include "text/address_entry.h"

#include "text/text.h"

namespace qc {
namespace {

std::string TrimBlanks(const std::string& s) {
  const auto b = s.find_first_not_of(' ');
  if (b == std::string::npos) return {};
  return s.substr(b, s.find_last_not_of(' ') - b + 1);
}

bool Listed(const EntryList& list, const std::string& item) {
  for (long long i = 0; i < list.Count(); ++i) {
    if (list.Item(i) == item) return true;
  }
  return false;
}

}  // namespace

void EnterAddresses(const std::string& typed, bool memberBox, EntryList& list) {
  std::string entry = LowerCase(StripBlanks(typed));
  if (entry.empty()) return;
  if (InStr(entry, "(") != 0 || InStr(entry, ")") != 0) {
    ReplaceAll(entry, ")(", ",");
    ReplaceAll(entry, "(", "");
    ReplaceAll(entry, ")", "");
  }

  if (InStr(entry, ",") == 0) {
    for (long long i = 0; i < list.Count(); ++i) {
      if (list.Item(i) == entry) {
        list.MakeCurrent(i);
        return;
      }
    }
    list.Add(entry);
    for (long long i = 0; i < list.Count(); ++i) {
      if (list.Item(i) == entry) {
        list.MakeCurrent(i);
        break;
      }
    }
    return;
  }

  std::string rest = entry + ",";
  ReplaceAll(rest, ",,", "");
  if (memberBox) {
    // No guard: a rest shorter than two characters asks for position 0 or -1 and fails.
    const long long at = static_cast<long long>(rest.size()) - 1;
    if (Mid(rest, at, 1) != ",") rest += ",";
  }
  while (!TrimBlanks(rest).empty()) {
    const std::string item = TextBefore(rest, ",");
    rest = TextAfter(rest, ",");
    if (!item.empty() && !Listed(list, item)) list.Add(item);
  }
}

}  // namespace qc
