// The chat tools' menu items and buttons.
#include <QAction>
#include <QObject>
#include <string>

#include "run/chat.h"
#include "ui/frmmain.h"
#include "ui/frmmenu.h"
#include "client/upchat.h"
#include "client/ghost.h"
#include "client/instant_message.h"
#include "client/window_routines.h"

namespace qc {
namespace {

void SendImCommand(const std::string& to) {
  SendInstantMessage(CurrentWindowSystem(), ToCodePage(to), kImCommandText);
}

bool NewGeneration() {
  const std::int16_t g = ClientVersion(CurrentWindowSystem());
  return g == 4 || g == 5;
}

}  // namespace

void ConnectChatTools(FrmMain& f, FrmMenu& m) {
  QObject::connect(m.bragg, &QAction::triggered, &f, [&f] { BragStats(f); });
  QObject::connect(m.upchatscrolll, &QAction::triggered, &f, [] { ScrollStats(true); });
  QObject::connect(m.ucon, &QAction::triggered, &f, [] { UpchatOn(); });
  QObject::connect(m.ucoff, &QAction::triggered, &f, [] { UpchatOff(); });
  QObject::connect(m.imzonn, &QAction::triggered, &f, [] { SendImCommand(kImOn); });
  QObject::connect(m.imzzoff, &QAction::triggered, &f, [] { SendImCommand(kImOff); });
  QObject::connect(m.gonnnnn, &QAction::triggered, &f, [] {
    if (NewGeneration()) {
      GhostOnNew(CurrentWindowSystem());
    } else {
      GhostOnOld(CurrentWindowSystem());
    }
  });
  QObject::connect(m.gofffff, &QAction::triggered, &f, [] {
    if (NewGeneration()) {
      GhostOffNew(CurrentWindowSystem());
    } else {
      GhostOffOld(CurrentWindowSystem());
    }
  });
  QObject::connect(f.picBut3, &Label::clicked, &f, [] { UpchatOn(); });
  QObject::connect(f.picBut4, &Label::clicked, &f, [] { UpchatOff(); });
  QObject::connect(f.picBut5, &Label::clicked, &f, [] { ScrollStats(false); });
}

}  // namespace qc
