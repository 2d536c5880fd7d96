#include "shell/skin_art.h"

#include <QDir>

// Resources of a static library are registered by name from outside any namespace.
static void RegisterSkin() { Q_INIT_RESOURCE(skin); }

namespace qc {

void InitSkinResources() {
  static const bool once = (RegisterSkin(), true);
  (void)once;
}

QPixmap SkinArt(const QString& name) {
  InitSkinResources();
  return QPixmap(QStringLiteral(":/skin/%1.png").arg(name));
}

QPixmap ButtonArt(int number) { return SkinArt(QStringLiteral("p%1").arg(number)); }

}  // namespace qc
