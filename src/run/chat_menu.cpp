// The chat tools' menu items and buttons.
#include <QAction>
#include <QObject>
#include <string>

#include "run/chat.h"
#include "ui/frmmain.h"
#include "ui/frmmenu.h"
#include "ui/services.h"
#include "client/upchat.h"
#include "client/ghost.h"
#include "client/instant_message.h"
#include "client/window_routines.h"

namespace qc {
namespace {

void SendImCommand(WindowSystem& ws, const std::string& to) {
  SendInstantMessage(ws, ToCodePage(to), kImCommandText);
}

bool NewGeneration(WindowSystem& ws) {
  const std::int16_t g = ClientVersion(ws);
  return g == 4 || g == 5;
}

}  // namespace

void ConnectChatTools(FrmMain& f, FrmMenu& m, const Services& services) {
  WindowSystem& ws = services.windows;
  Prompts& prompts = services.prompts;
  QObject::connect(m.bragg, &QAction::triggered, &f, [&f, &ws] { BragStats(f, ws); });
  QObject::connect(m.upchatscrolll, &QAction::triggered, &f, [&ws] { ScrollStats(ws, true); });
  QObject::connect(m.ucon, &QAction::triggered, &f, [&ws, &prompts] { UpchatOn(ws, prompts); });
  QObject::connect(m.ucoff, &QAction::triggered, &f, [&ws, &prompts] { UpchatOff(ws, prompts); });
  QObject::connect(m.imzonn, &QAction::triggered, &f, [&ws] { SendImCommand(ws, kImOn); });
  QObject::connect(m.imzzoff, &QAction::triggered, &f, [&ws] { SendImCommand(ws, kImOff); });
  QObject::connect(m.gonnnnn, &QAction::triggered, &f, [&ws] {
    if (NewGeneration(ws)) {
      GhostOnNew(ws);
    } else {
      GhostOnOld(ws);
    }
  });
  QObject::connect(m.gofffff, &QAction::triggered, &f, [&ws] {
    if (NewGeneration(ws)) {
      GhostOffNew(ws);
    } else {
      GhostOffOld(ws);
    }
  });
  QObject::connect(f.picBut3, &Label::clicked, &f, [&ws, &prompts] { UpchatOn(ws, prompts); });
  QObject::connect(f.picBut4, &Label::clicked, &f, [&ws, &prompts] { UpchatOff(ws, prompts); });
  QObject::connect(f.picBut5, &Label::clicked, &f, [&ws] { ScrollStats(ws, false); });
}

}  // namespace qc
