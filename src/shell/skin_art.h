#pragma once
// The skin's artwork, compiled into the program from assets/skin.
#include <QPixmap>
#include <QString>

namespace qc {

// Registers the compiled artwork; safe to call more than once.
void InitSkinResources();

// "picture1", "background", "p1" .. "p16", "title", "logo". A null pixmap if there is none.
QPixmap SkinArt(const QString& name);
QPixmap ButtonArt(int number);

}  // namespace qc
