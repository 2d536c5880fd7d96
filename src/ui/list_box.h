#pragma once
// The one list control of the program, visible or hidden, with the platform list's operations.
// Indexes and counts are signed 16-bit numbers: past 32,767 entries reading them overflows.
//
// An entry keeps its whole value (NULs and bytes that are not UTF-8 included); the list shows
// it up to the first NUL. Entries appended to a visible list reach the view in batches, a few
// times a second, so that a folder of thousands of files is not laid out again at every pump;
// the list's operations see every entry at once.
#include <QListWidget>
#include <QStringList>
#include <QTimer>
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

  // The entry count without the 16-bit conversion (for texts that show it).
  int EntryCount() const { return count() + static_cast<int>(pending_.size()); }
  // What the list shows of entry `index`.
  QString ShownItem(int index) const;
  // Hands appended entries to the view now.
  void Flush();

  // Free text that handlers keep on the control.
  QString Tag;

 private:
  void CheckIndex(long long index, int failure) const;
  QString Value(int index) const;
  MultiSelect multiSelect_ = kSingle;
  int newIndex_ = -1;
  QStringList pending_;  // appended, not yet in the view
  QTimer flushTimer_;
};

}  // namespace qc
