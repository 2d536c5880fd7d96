#pragma once
// Stand-in for the shared list control until it exists: the same operations on a QListWidget.
#include <QListWidget>
#include <cstdint>
#include <string>

namespace qc {

class ListBox : public QListWidget {
 public:
  explicit ListBox(QWidget* parent = nullptr) : QListWidget(parent) {}
  void AddItem(const std::string& text) { addItem(QString::fromStdString(text)); }
  void RemoveItem(int i) { delete takeItem(i); }
  std::int16_t ListCount() const { return static_cast<std::int16_t>(count()); }
  std::string List(int i) const {
    const QListWidgetItem* it = item(i);
    return it ? it->text().toStdString() : std::string();
  }
  void Clear() { clear(); }
  QString Tag;
};

}  // namespace qc
