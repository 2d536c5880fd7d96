#include "ui/list_box.h"

#include "base/failure.h"
#include "base/numbers.h"

namespace qc {

ListBox::ListBox(QWidget* parent) : QListWidget(parent) {
  setSelectionMode(QAbstractItemView::SingleSelection);
}

void ListBox::CheckIndex(long long index, int failure) const {
  ToInteger16(index);
  if (index < 0 || index >= count()) RaiseFailure(failure);
}

void ListBox::AddItem(const std::string& text) {
  addItem(QString::fromStdString(text));
  newIndex_ = count() - 1;
}

void ListBox::AddItem(const std::string& text, long long index) {
  ToInteger16(index);
  if (index < 0 || index > count()) RaiseFailure(kInvalidArgument);
  insertItem(static_cast<int>(index), QString::fromStdString(text));
  newIndex_ = static_cast<int>(index);
}

void ListBox::RemoveItem(long long index) {
  CheckIndex(index, kInvalidArgument);
  delete takeItem(static_cast<int>(index));
}

void ListBox::Clear() {
  clear();
  newIndex_ = -1;
}

std::int16_t ListBox::ListCount() const { return ToInteger16(count()); }

std::string ListBox::List(long long index) const {
  ToInteger16(index);
  const QListWidgetItem* it = index >= 0 && index < count() ? item(static_cast<int>(index)) : nullptr;
  return it ? it->text().toStdString() : std::string();
}

void ListBox::SetList(long long index, const std::string& text) {
  CheckIndex(index, kInvalidPropertyArrayIndex);
  item(static_cast<int>(index))->setText(QString::fromStdString(text));
}

std::int16_t ListBox::NewIndex() const { return ToInteger16(newIndex_); }

bool ListBox::Selected(long long index) const {
  CheckIndex(index, kInvalidPropertyArrayIndex);
  return item(static_cast<int>(index))->isSelected();
}

void ListBox::SetSelected(long long index, bool selected) {
  CheckIndex(index, kInvalidPropertyArrayIndex);
  QListWidgetItem* it = item(static_cast<int>(index));
  if (multiSelect_ == kSingle) {
    if (selected) {
      setCurrentItem(it);
    } else if (it->isSelected()) {
      it->setSelected(false);
    }
    return;
  }
  it->setSelected(selected);
}

std::int16_t ListBox::SelCount() const {
  return ToInteger16(static_cast<long long>(selectedItems().size()));
}

std::int16_t ListBox::ListIndex() const {
  int row = currentRow();
  if (multiSelect_ == kSingle && (row < 0 || !item(row)->isSelected())) return -1;
  return ToInteger16(row);
}

void ListBox::SetListIndex(long long index) {
  ToInteger16(index);
  if (index == -1) {
    clearSelection();
    setCurrentRow(-1);
    return;
  }
  if (index < -1 || index >= count()) RaiseFailure(kInvalidPropertyValue);
  setCurrentRow(static_cast<int>(index));
}

std::string ListBox::Text() const {
  int row = ListIndex();
  return row < 0 ? std::string() : List(row);
}

void ListBox::SetMultiSelect(MultiSelect mode) {
  multiSelect_ = mode;
  setSelectionMode(mode == kSingle   ? QAbstractItemView::SingleSelection
                   : mode == kSimple ? QAbstractItemView::MultiSelection
                                     : QAbstractItemView::ExtendedSelection);
}

std::vector<std::string> ListBox::Items() const {
  std::vector<std::string> items;
  items.reserve(static_cast<std::size_t>(count()));
  for (int i = 0; i < count(); ++i) items.push_back(item(i)->text().toStdString());
  return items;
}

}  // namespace qc
