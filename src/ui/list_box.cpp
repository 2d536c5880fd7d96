#include "ui/list_box.h"

#include <QStyledItemDelegate>

#include "ui/shown_text.h"
#include "base/failure.h"
#include "base/numbers.h"

namespace qc {
namespace {

// How often appended entries reach a visible list: often enough to watch it grow.
constexpr int kFlushIntervalMs = 40;

class ShownTextDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  QString displayText(const QVariant& value, const QLocale& locale) const override {
    return QStyledItemDelegate::displayText(ShownText(value.toString()), locale);
  }
};

}  // namespace

ListBox::ListBox(QWidget* parent) : QListWidget(parent) {
  setSelectionMode(QAbstractItemView::SingleSelection);
  // Rows of one height: laying out thousands of entries measures one of them.
  setUniformItemSizes(true);
  setItemDelegate(new ShownTextDelegate(this));
  flushTimer_.setSingleShot(true);
  flushTimer_.setInterval(kFlushIntervalMs);
  QObject::connect(&flushTimer_, &QTimer::timeout, this, [this] { Flush(); });
}

void ListBox::Flush() {
  flushTimer_.stop();
  if (pending_.isEmpty()) return;
  addItems(pending_);
  pending_.clear();
}

void ListBox::CheckIndex(long long index, int failure) const {
  ToInteger16(index);
  if (index < 0 || index >= EntryCount()) RaiseFailure(failure);
}

QString ListBox::Value(int index) const {
  if (index < count()) return item(index)->text();
  return pending_.at(index - count());
}

void ListBox::AddItem(const std::string& text) {
  pending_.append(ToQ(text));
  if (!flushTimer_.isActive()) flushTimer_.start();
  newIndex_ = EntryCount() - 1;
}

void ListBox::AddItem(const std::string& text, long long index) {
  ToInteger16(index);
  if (index < 0 || index > EntryCount()) RaiseFailure(kInvalidArgument);
  Flush();
  insertItem(static_cast<int>(index), ToQ(text));
  newIndex_ = static_cast<int>(index);
}

void ListBox::RemoveItem(long long index) {
  CheckIndex(index, kInvalidArgument);
  Flush();
  delete takeItem(static_cast<int>(index));
}

void ListBox::Clear() {
  flushTimer_.stop();
  pending_.clear();
  clear();
  newIndex_ = -1;
}

std::int16_t ListBox::ListCount() const { return ToInteger16(EntryCount()); }

std::string ListBox::List(long long index) const {
  ToInteger16(index);
  return index >= 0 && index < EntryCount() ? FromQ(Value(static_cast<int>(index)))
                                             : std::string();
}

void ListBox::SetList(long long index, const std::string& text) {
  CheckIndex(index, kInvalidPropertyArrayIndex);
  Flush();
  item(static_cast<int>(index))->setText(ToQ(text));
}

std::int16_t ListBox::NewIndex() const { return ToInteger16(newIndex_); }

bool ListBox::Selected(long long index) const {
  CheckIndex(index, kInvalidPropertyArrayIndex);
  // An entry still on its way to the view cannot have been selected.
  return index < count() && item(static_cast<int>(index))->isSelected();
}

void ListBox::SetSelected(long long index, bool selected) {
  CheckIndex(index, kInvalidPropertyArrayIndex);
  Flush();
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
  if (index < -1 || index >= EntryCount()) RaiseFailure(kInvalidPropertyValue);
  Flush();
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
  items.reserve(static_cast<std::size_t>(EntryCount()));
  for (int i = 0; i < EntryCount(); ++i) items.push_back(FromQ(Value(i)));
  return items;
}

QString ListBox::ShownItem(int index) const { return ShownText(Value(index)); }

}  // namespace qc
