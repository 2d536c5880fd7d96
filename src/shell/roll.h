#pragma once
// Rolling the main window up and down with picMini. The roll state is the button's tool tip,
// "roll up" at start; its Tag remembers the top to come back to, as text.
#include <QString>

class QWidget;

namespace qc {

inline constexpr const char* kRollUp = "roll up";
inline constexpr const char* kRollDown = "roll down";

struct RollStep {
  QString toolTip;
  QString tag;
  double top;  // the window's new top in twips
};

// Rolling up keeps the window's size and slides it up until picMini's row stands at the
// screen's upper edge; rolling down puts it back at the number in the tag.
RollStep NextRoll(const QString& toolTip, const QString& tag, double windowTop, double picMiniTop);

// The click on picMini: reads and writes its tool tip, the tag, and the window's top.
void RollUpOrDown(QWidget* window, QWidget* picMini, QString& tag);

}  // namespace qc
