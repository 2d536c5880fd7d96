// Draws the skin's artwork once: the main window's Picture1 and background, the sixteen button
// pictures, the title strip of the secondary windows and the logo. The PNGs are committed;
// run this again only to change the look:  qc_artgen <assets/skin folder>
#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <QRandomGenerator>
#include <cstdio>

#include "shell/skin_layout.h"

namespace {

using namespace qc::skin;

const QColor kAccent(0x60, 0x86, 0x9F);
const QColor kAccentLight(0x93, 0xB4, 0xC9);
const QColor kAccentDark(0x3B, 0x57, 0x6A);
const QColor kEdge(0x26, 0x2C, 0x32);
const QColor kMetalTop(0xE6, 0xEA, 0xEE);
const QColor kMetalMid(0xBC, 0xC3, 0xCA);
const QColor kMetalLow(0x8C, 0x95, 0x9E);
const QColor kLabel(0x22, 0x2A, 0x31);
const QColor kFace(0xC6, 0xCB, 0xD1);

QFont SmallFont(int px, bool bold = false) {
  QFont f(QStringLiteral("DejaVu Sans"));
  f.setPixelSize(px);
  f.setBold(bold);
  f.setHintingPreference(QFont::PreferFullHinting);
  f.setStyleStrategy(QFont::PreferAntialias);
  return f;
}

QImage Canvas(int w, int h) {
  QImage img(w, h, QImage::Format_ARGB32_Premultiplied);
  img.fill(Qt::transparent);
  return img;
}

QLinearGradient Metal(qreal top, qreal bottom) {
  QLinearGradient g(0, top, 0, bottom);
  g.setColorAt(0, kMetalTop);
  g.setColorAt(0.45, kMetalMid);
  g.setColorAt(1, kMetalLow);
  return g;
}

// Fine horizontal brushing inside a path, the same every run.
void Brush(QPainter& p, const QPainterPath& area, int w, int h, quint32 seed) {
  QRandomGenerator rng(seed);
  p.save();
  p.setClipPath(area);
  for (int y = 0; y < h; ++y) {
    const int a = static_cast<int>(rng.bounded(18));
    p.setPen(rng.bounded(2) ? QColor(255, 255, 255, a) : QColor(0, 0, 0, a / 2));
    p.drawLine(0, y, w, y);
  }
  p.restore();
}

// A recess in the metal: dark on the upper left, light on the lower right.
void Well(QPainter& p, const QRectF& r, qreal radius) {
  QPainterPath path;
  path.addRoundedRect(r, radius, radius);
  QLinearGradient g(r.topLeft(), r.bottomLeft());
  g.setColorAt(0, QColor(0x7E, 0x87, 0x90));
  g.setColorAt(1, QColor(0xA9, 0xB1, 0xB9));
  p.fillPath(path, g);
  p.setPen(QPen(QColor(0x4A, 0x52, 0x5A), 1));
  p.drawPath(path);
  p.setPen(QPen(QColor(255, 255, 255, 150), 1));
  p.drawLine(QPointF(r.left() + radius, r.bottom() + 1), QPointF(r.right() - radius, r.bottom() + 1));
}

void Label(QPainter& p, const QString& text, QPointF at, int px = 8) {
  p.setFont(SmallFont(px));
  p.setPen(QColor(255, 255, 255, 140));
  p.drawText(at + QPointF(0, 1), text);
  p.setPen(kLabel);
  p.drawText(at, text);
}

// A dark inset screen for light text.
void Display(QPainter& p, const QRectF& r) {
  QPainterPath path;
  path.addRoundedRect(r, 3.5, 3.5);
  QLinearGradient g(r.topLeft(), r.bottomLeft());
  g.setColorAt(0, QColor(0x14, 0x1D, 0x24));
  g.setColorAt(1, QColor(0x2A, 0x3C, 0x49));
  p.fillPath(path, g);
  p.setPen(QPen(QColor(0x4A, 0x52, 0x5A), 1));
  p.drawPath(path);
  p.setPen(QPen(QColor(255, 255, 255, 150), 1));
  p.drawLine(QPointF(r.left() + 3, r.bottom() + 1), QPointF(r.right() - 3, r.bottom() + 1));
}

QPainterPath Outline() {
  QPainterPath body;
  body.addRoundedRect(QRectF(2, 7, 237, 126), 10, 10);
  QPainterPath crown;
  crown.moveTo(102, 12);
  crown.cubicTo(108, 12, 108, 1, 117, 1);
  crown.lineTo(205, 1);
  crown.cubicTo(214, 1, 214, 12, 220, 12);
  crown.closeSubpath();
  QPainterPath ear;
  ear.addRoundedRect(QRectF(228, 32, 15, 54), 6, 6);
  QPainterPath foot;
  foot.moveTo(56, 128);
  foot.cubicTo(64, 128, 66, 134.5, 76, 134.5);
  foot.lineTo(168, 134.5);
  foot.cubicTo(178, 134.5, 180, 128, 188, 128);
  foot.closeSubpath();
  return body.united(crown).united(ear).united(foot).simplified();
}

QImage DrawSkin() {
  QImage img = Canvas(kSkinWidth, kSkinHeight);
  QPainter p(&img);
  p.setRenderHint(QPainter::Antialiasing);
  const QPainterPath outline = Outline();
  p.fillPath(outline, Metal(0, kSkinHeight));
  Brush(p, outline, kSkinWidth, kSkinHeight, 97);

  // The crown carries the counter display for the all-runs sum line.
  Display(p, QRectF(kCounterX - 0.5, kCounterY - 0.5, kCounterW + 1, kCounterH + 1));

  // The panels' bay and the status display.
  Well(p, QRectF(kPanelX - 2.5, kPanelY - 2.5, kPanelW + 4, kPanelH + 4), 3);
  p.fillRect(QRect(kPanelX, kPanelY, kPanelW, kPanelH), kFace);
  Display(p, QRectF(37.5, 101.5, 174, 13));

  // Wells under the face's buttons, and their labels.
  for (const Place& pl : kFacePlaces) {
    int w = 0, h = 0;
    for (const ArtSize& a : kArtSizes)
      if (a.number == pl.releaseArt) w = a.width, h = a.height;
    if (pl.releaseArt == 9) {
      QPainterPath ring;
      ring.addEllipse(QRectF(pl.x - 1.5, pl.y - 1.5, w + 3, h + 3));
      p.fillPath(ring, QColor(0x6E, 0x77, 0x80));
      p.setPen(QPen(QColor(255, 255, 255, 160), 1));
      p.drawArc(QRectF(pl.x - 1.5, pl.y - 1.5, w + 3, h + 3), 200 * 16, 140 * 16);
    } else if (pl.releaseArt != 1) {
      Well(p, QRectF(pl.x - 1.5, pl.y - 1.5, w + 3, h + 3), 3);
    }
    if (pl.label) {
      const qreal baseline = pl.y + h / 2.0 + 3;
      Label(p, QString::fromLatin1(pl.label), QPointF(pl.x + w + 3, baseline));
    }
  }

  // A grill on the left flank; the name engraved up the right one, with a lamp on the ear.
  for (int i = 0; i < 5; ++i) {
    QRectF slot(9, 80 + i * 5, 16, 2);
    p.fillRect(slot, QColor(0x4A, 0x52, 0x5A));
    p.fillRect(slot.translated(0, 1).adjusted(0, 1, 0, 0), QColor(255, 255, 255, 120));
  }
  p.save();
  p.translate(233, 102);
  p.rotate(-90);
  p.setFont(SmallFont(10, true));
  p.setPen(QColor(255, 255, 255, 160));
  p.drawText(QRectF(0, -6, 72, 14), Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("quill cast"));
  p.setPen(kAccentDark);
  p.drawText(QRectF(-1, -7, 72, 14), Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("quill cast"));
  p.restore();
  QRadialGradient lamp(QPointF(235.5, 27.5), 3);
  lamp.setColorAt(0, kAccentLight);
  lamp.setColorAt(1, kAccentDark);
  p.setBrush(lamp);
  p.setPen(QPen(kEdge, 0.8));
  p.drawEllipse(QPointF(231.5, 27.5), 2.5, 2.5);
  p.setBrush(Qt::NoBrush);

  // Rim: a dark edge with a light inner line along the top.
  p.setPen(QPen(kEdge, 1.2));
  p.drawPath(outline);
  p.setPen(QPen(QColor(255, 255, 255, 170), 1));
  p.save();
  p.setClipRect(QRect(0, 0, kSkinWidth, 40));
  p.drawPath(outline.translated(0, 1.2).intersected(outline));
  p.restore();
  return img;
}

// The window's outline must be crisp: half-covered pixels become opaque rim, the rest the
// transparent colour read from the top-left pixel.
QImage Flatten(const QImage& art) {
  QImage out(art.size(), QImage::Format_RGB32);
  const QColor rim = kEdge;
  for (int y = 0; y < art.height(); ++y) {
    for (int x = 0; x < art.width(); ++x) {
      const QColor c = art.pixelColor(x, y);
      if (c.alpha() < 110) {
        out.setPixel(x, y, 0xFF000000u | kTransparentRgb);
      } else {
        const qreal a = c.alphaF();
        out.setPixelColor(x, y, QColor::fromRgbF(c.redF() * a + rim.redF() * (1 - a),
                                                 c.greenF() * a + rim.greenF() * (1 - a),
                                                 c.blueF() * a + rim.blueF() * (1 - a)));
      }
    }
  }
  return out;
}

// Buttons --------------------------------------------------------------------------------------

void RaisedKey(QPainter& p, const QRectF& r, bool down, qreal radius) {
  QPainterPath path;
  path.addRoundedRect(r.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
  QLinearGradient g(r.topLeft(), r.bottomLeft());
  if (down) {
    g.setColorAt(0, QColor(0x8C, 0x95, 0x9E));
    g.setColorAt(1, QColor(0xB4, 0xBC, 0xC4));
  } else {
    g.setColorAt(0, QColor(0xF4, 0xF6, 0xF8));
    g.setColorAt(0.5, QColor(0xCD, 0xD3, 0xD9));
    g.setColorAt(1, QColor(0x9A, 0xA3, 0xAC));
  }
  p.fillPath(path, g);
  p.setPen(QPen(kEdge, 1));
  p.drawPath(path);
  if (!down) {
    p.setPen(QPen(QColor(255, 255, 255, 200), 1));
    p.drawLine(QPointF(r.left() + radius, r.top() + 1.5), QPointF(r.right() - radius, r.top() + 1.5));
  }
}

QColor GlyphColour(bool down) { return down ? kAccentDark : kAccent; }

QImage MenuTriangle(bool down) {
  QImage img = Canvas(12, 9);
  QPainter p(&img);
  p.setRenderHint(QPainter::Antialiasing);
  const qreal d = down ? 1 : 0;
  QPainterPath tri;
  tri.moveTo(0.8, 0.8 + d);
  tri.lineTo(11.2, 0.8 + d);
  tri.lineTo(6, 8.2);
  tri.closeSubpath();
  QLinearGradient g(0, 0, 0, 9);
  g.setColorAt(0, down ? kAccent : kAccentLight);
  g.setColorAt(1, down ? kAccentDark.darker(120) : kAccentDark);
  p.fillPath(tri, g);
  p.setPen(QPen(kEdge, 1));
  p.drawPath(tri);
  return img;
}

QImage ArrowKey(bool up, bool down) {
  QImage img = Canvas(16, 12);
  QPainter p(&img);
  p.setRenderHint(QPainter::Antialiasing);
  RaisedKey(p, QRectF(0, 0, 16, 12), down, 3);
  const qreal d = down ? 0.8 : 0;
  QPainterPath a;
  if (up) {
    a.moveTo(4.5 + d, 8 + d);
    a.lineTo(11.5 + d, 8 + d);
    a.lineTo(8 + d, 3.5 + d);
  } else {
    a.moveTo(4.5 + d, 4 + d);
    a.lineTo(11.5 + d, 4 + d);
    a.lineTo(8 + d, 8.5 + d);
  }
  a.closeSubpath();
  p.fillPath(a, GlyphColour(down));
  return img;
}

QImage SmallKey(bool exit, bool down) {
  QImage img = Canvas(12, 12);
  QPainter p(&img);
  p.setRenderHint(QPainter::Antialiasing);
  RaisedKey(p, QRectF(0, 0, 12, 12), down, 3);
  const qreal d = down ? 0.7 : 0;
  if (exit) {
    p.setPen(QPen(down ? QColor(0x7A, 0x24, 0x24) : QColor(0xA8, 0x3A, 0x3A), 1.8, Qt::SolidLine,
                  Qt::RoundCap));
    p.drawLine(QPointF(3.8 + d, 3.8 + d), QPointF(8.2 + d, 8.2 + d));
    p.drawLine(QPointF(8.2 + d, 3.8 + d), QPointF(3.8 + d, 8.2 + d));
  } else {
    // Roll: a chevron over a bar, the window sliding up.
    p.setPen(QPen(GlyphColour(down), 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.drawPolyline(QPolygonF({QPointF(3.5 + d, 6 + d), QPointF(6 + d, 3.5 + d),
                              QPointF(8.5 + d, 6 + d)}));
    p.drawLine(QPointF(3.5 + d, 8.5 + d), QPointF(8.5 + d, 8.5 + d));
  }
  return img;
}

QImage RoundButton(bool down) {
  QImage img = Canvas(14, 14);
  QPainter p(&img);
  p.setRenderHint(QPainter::Antialiasing);
  const QRectF r(0.6, 0.6, 12.8, 12.8);
  QRadialGradient g(down ? QPointF(7, 7) : QPointF(5, 4.5), down ? 7 : 8);
  if (down) {
    g.setColorAt(0, kAccentLight);
    g.setColorAt(0.6, kAccent);
    g.setColorAt(1, kAccentDark);
  } else {
    g.setColorAt(0, QColor(0xFA, 0xFB, 0xFC));
    g.setColorAt(0.55, QColor(0xC4, 0xCB, 0xD2));
    g.setColorAt(1, QColor(0x80, 0x89, 0x92));
  }
  p.setBrush(g);
  p.setPen(QPen(kEdge, 1));
  p.drawEllipse(r);
  // An accent ring marks the resting button; the pressed one glows instead.
  p.setBrush(Qt::NoBrush);
  p.setPen(QPen(down ? QColor(255, 255, 255, 90) : kAccent, 1.2));
  p.drawEllipse(r.adjusted(2.4, 2.4, -2.4, -2.4));
  return img;
}

QImage ModeKey(bool info, bool down) {
  QImage img = Canvas(20, 20);
  QPainter p(&img);
  p.setRenderHint(QPainter::Antialiasing);
  RaisedKey(p, QRectF(0, 0, 20, 20), down, 4);
  const qreal d = down ? 0.8 : 0;
  const QColor c = GlyphColour(down);
  if (info) {
    p.setBrush(c);
    p.setPen(Qt::NoPen);
    p.drawEllipse(QPointF(10 + d, 5.5 + d), 1.6, 1.6);
    p.drawRoundedRect(QRectF(8.6 + d, 8 + d, 2.8, 7.5), 1, 1);
    p.drawRect(QRectF(7.5 + d, 14.2 + d, 5, 1.4));
  } else {
    p.setPen(QPen(c, 1.6, Qt::SolidLine, Qt::RoundCap));
    for (int i = 0; i < 3; ++i) {
      const qreal y = 6 + i * 4 + d;
      p.drawPoint(QPointF(5 + d, y));
      p.drawLine(QPointF(8 + d, y), QPointF(15 + d, y));
    }
  }
  return img;
}

QImage TitleStrip() {
  QImage img = Canvas(300, 19);
  QPainter p(&img);
  p.setRenderHint(QPainter::Antialiasing);
  QLinearGradient g(0, 0, 0, 19);
  g.setColorAt(0, kAccentLight);
  g.setColorAt(0.5, kAccent);
  g.setColorAt(1, kAccentDark);
  p.fillRect(img.rect(), g);
  QPainterPath all;
  all.addRect(img.rect());
  Brush(p, all, 300, 19, 23);
  // The emblem at the left end: a small steel stud with an accent core.
  QRadialGradient stud(QPointF(9, 8.5), 6);
  stud.setColorAt(0, QColor(0xFA, 0xFB, 0xFC));
  stud.setColorAt(0.6, kMetalMid);
  stud.setColorAt(1, kMetalLow);
  p.setBrush(stud);
  p.setPen(QPen(kEdge, 1));
  p.drawEllipse(QPointF(10, 9.5), 6, 6);
  p.setBrush(kAccent);
  p.setPen(Qt::NoPen);
  p.drawEllipse(QPointF(10, 9.5), 2.2, 2.2);
  // Engraved lines to the right end.
  for (int i = 0; i < 3; ++i) {
    p.fillRect(QRectF(288 - i * 4, 5, 1, 9), QColor(0, 0, 0, 70));
    p.fillRect(QRectF(289 - i * 4, 5, 1, 9), QColor(255, 255, 255, 70));
  }
  return img;
}

QImage Logo() {
  QImage img = Canvas(64, 64);
  QPainter p(&img);
  p.setRenderHint(QPainter::Antialiasing);
  QRadialGradient ring(QPointF(26, 22), 40);
  ring.setColorAt(0, kMetalTop);
  ring.setColorAt(0.6, kMetalMid);
  ring.setColorAt(1, kMetalLow);
  p.setBrush(ring);
  p.setPen(QPen(kEdge, 1.5));
  p.drawEllipse(QRectF(2, 2, 60, 60));
  QLinearGradient disc(0, 10, 0, 54);
  disc.setColorAt(0, kAccentLight);
  disc.setColorAt(1, kAccentDark);
  p.setBrush(disc);
  p.setPen(QPen(QColor(0x4A, 0x52, 0x5A), 1));
  p.drawEllipse(QRectF(9, 9, 46, 46));
  // A quill across the disc, vane and shaft.
  QPainterPath vane;
  vane.moveTo(19, 47);
  vane.cubicTo(22, 32, 32, 18, 47, 14);
  vane.cubicTo(45, 26, 36, 38, 22, 45);
  vane.closeSubpath();
  p.setBrush(QColor(0xF4, 0xF7, 0xF9));
  p.setPen(QPen(QColor(0x26, 0x2C, 0x32, 160), 0.8));
  p.drawPath(vane);
  p.setPen(QPen(kAccentDark, 1.2, Qt::SolidLine, Qt::RoundCap));
  p.drawLine(QPointF(16, 51), QPointF(44, 17));
  for (int i = 0; i < 5; ++i) {
    const qreal t = 0.3 + i * 0.12;
    const QPointF on(16 + 28 * t, 51 - 34 * t);
    p.setPen(QPen(QColor(0x60, 0x86, 0x9F, 120), 0.7));
    p.drawLine(on, on + QPointF(4, 2.5));
  }
  return img;
}

bool Save(const QImage& img, const QString& dir, const QString& name) {
  const QString path = QDir(dir).filePath(name);
  if (!img.save(path, "PNG")) {
    std::fprintf(stderr, "artgen: cannot write %s\n", qPrintable(path));
    return false;
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication app(argc, argv);
  if (argc < 2) {
    std::fprintf(stderr, "usage: qc_artgen <output folder>\n");
    return 2;
  }
  const QString dir = QString::fromLocal8Bit(argv[1]);
  QDir().mkpath(dir);
  const QImage skinArt = Flatten(DrawSkin());
  bool ok = Save(skinArt.convertToFormat(QImage::Format_RGB888), dir, QStringLiteral("picture1.png"));
  ok &= Save(skinArt.copy(0, 0, kBackgroundWidth, kBackgroundHeight).convertToFormat(QImage::Format_RGB888),
             dir, QStringLiteral("background.png"));
  const QImage art[17] = {
      QImage(),           MenuTriangle(false), MenuTriangle(true), ArrowKey(false, false),
      ArrowKey(false, true), ArrowKey(true, false), ArrowKey(true, true), SmallKey(false, false),
      SmallKey(false, true), RoundButton(false), RoundButton(true), ModeKey(true, false),
      ModeKey(true, true), ModeKey(false, false), ModeKey(false, true), SmallKey(true, false),
      SmallKey(true, true)};
  for (int i = 1; i <= 16; ++i) ok &= Save(art[i], dir, QStringLiteral("p%1.png").arg(i));
  ok &= Save(TitleStrip(), dir, QStringLiteral("title.png"));
  ok &= Save(Logo(), dir, QStringLiteral("logo.png"));
  return ok ? 0 : 1;
}
