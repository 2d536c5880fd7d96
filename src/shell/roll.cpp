#include "shell/roll.h"

#include <QWidget>

#include "ui/window_routines.h"
#include "base/failure.h"
#include "base/numbers.h"

namespace qc {

RollStep NextRoll(const QString& toolTip, const QString& tag, double windowTop, double picMiniTop) {
  if (toolTip == QLatin1String(kRollUp)) {
    return {QString::fromLatin1(kRollDown), QString::fromStdString(PlainNumberText(windowTop)),
            -picMiniTop};
  }
  // The tag is turned back into a number as the platform converts text: a tag that is no
  // number is a type mismatch.
  bool ok = false;
  const double top = tag.trimmed().toDouble(&ok);
  if (!ok) RaiseFailure(kTypeMismatch);
  return {QString::fromLatin1(kRollUp), tag, top};
}

void RollUpOrDown(QWidget* window, QWidget* picMini, QString& tag) {
  const RollStep step = NextRoll(picMini->toolTip(), tag, TwipsTop(window), TwipsTop(picMini));
  tag = step.tag;
  picMini->setToolTip(step.toolTip);
  SetTwipsTop(window, step.top);
}

}  // namespace qc
