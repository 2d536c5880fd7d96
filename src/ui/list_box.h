#pragma once
// The one list control of the program, visible or hidden, with the platform list's operations.
// Indexes and counts are signed 16-bit numbers: past 32,767 entries reading them overflows.
#include <QListWidget>
#include <cstdint>
#include <string>
#include <vector>

namespace qc {

class ListBox : public QListWidget {
 public:
  enum MultiSelect { kSingle = 0, kSimple = 1, kExtended = 2 };

  explicit ListBox(QWidget* parent = nullptr);

  void AddItem(const std::string& text);
  // Inserts at index (0..count); another index is an invalid argument.
  void AddItem(const std::string& text, long long index);
  // An index outside the list is an invalid argument.
  void RemoveItem(long long index);
  void Clear();

  std::int16_t ListCount() const;
  // The item's text; "" for an index outside the list.
  std::string List(long long index) const;
  void SetList(long long index, const std::string& text);
  // The index of the last item added.
  std::int16_t NewIndex() const;

  // An index outside the list is an invalid property array index.
  bool Selected(long long index) const;
  void SetSelected(long long index, bool selected);
  std::int16_t SelCount() const;

  // Single selection: the selected item or -1. Multi-selection: the item with the focus.
  std::int16_t ListIndex() const;
  // -1 clears; an index outside the list is an invalid property value.
  void SetListIndex(long long index);
  // The text of ListIndex's item, "" for none.
  std::string Text() const;

  void SetMultiSelect(MultiSelect mode);
  MultiSelect GetMultiSelect() const { return multiSelect_; }

  std::vector<std::string> Items() const;

  // Free text that handlers keep on the control.
  QString Tag;

 private:
  void CheckIndex(long long index, int failure) const;
  MultiSelect multiSelect_ = kSingle;
  int newIndex_ = -1;
};

}  // namespace qc
