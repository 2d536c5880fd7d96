// quill cast: the program a person starts.
#include <QProcessEnvironment>
#include <QScreen>
#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>

#include "ui/application.h"
#include "ui/qt_glue.h"
#include "ui/qt_prompts.h"
#include "ui/services.h"
#include "ui/frmmain.h"
#include "ui/frmmenu.h"
#include "program/control_dump.h"
#include "program/menu_wiring.h"
#include "shell/skin_art.h"
#include "program/startup.h"
#include "sim/sim_client.h"
#include "sim/sim_chat.h"
#include "sim/sim_desktop.h"
#include "sim/sim_im.h"
#include "sim/sim_mail.h"

#include "ui/viewer/client_viewer.h"
#ifdef _WIN32
#include "client/win32/win32_window_system.h"
#endif

namespace {

// The client the program drives, decided here once at start: on Windows the running client when
// its frame stands; otherwise (and everywhere else) the embedded simulated client, generation and
// screen name from the environment.
std::unique_ptr<qc::WindowSystem> RealClient() {
#ifdef _WIN32
  if (qc::Win32ClientRuns()) return std::make_unique<qc::Win32WindowSystem>();
#endif
  return nullptr;
}

struct EmbeddedClient {
  qc::sim::SimDesktop desktop;
  std::unique_ptr<qc::sim::SimClient> client;
  std::unique_ptr<qc::sim::SimMail> mail;
  std::unique_ptr<qc::sim::SimChat> chat;
  std::unique_ptr<qc::sim::SimIm> ims;
};

// The chat room the embedded client has open while signed on.
constexpr const char* kChatRoom = "Town Square - Lobby 12";

std::unique_ptr<EmbeddedClient> StartClient() {
  const QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
  qc::sim::ClientOptions options;
  bool ok = false;
  const int generation = env.value(QStringLiteral("QC_SIM_GENERATION")).toInt(&ok);
  if (ok && generation >= 2 && generation <= 5) options.generation = generation;
  if (env.contains(QStringLiteral("QC_SIM_SCREEN_NAME")))
    options.screenName = env.value(QStringLiteral("QC_SIM_SCREEN_NAME")).toStdString();
  options.signedOn = !options.screenName.empty();

  auto embedded = std::make_unique<EmbeddedClient>();
  embedded->client = std::make_unique<qc::sim::SimClient>(embedded->desktop, options);
  embedded->mail = std::make_unique<qc::sim::SimMail>(*embedded->client);
  embedded->chat = std::make_unique<qc::sim::SimChat>(*embedded->client);
  embedded->ims = std::make_unique<qc::sim::SimIm>(*embedded->client);
  if (options.signedOn) embedded->chat->OpenRoom(kChatRoom);
  return embedded;
}

}  // namespace

int main(int argc, char** argv) {
  qc::Application app(argc, argv);
  app.setQuitOnLastWindowClosed(false);  // only the exit command ends the program

  // A second instance ends silently, before any window shows.
  qc::InstanceLock lock;
  if (!lock.acquired()) return 0;

  qc::InstallQtPump();
  qc::QtPrompts prompts;
  qc::InitSkinResources();

  const std::unique_ptr<qc::WindowSystem> realClient = RealClient();
  const std::unique_ptr<EmbeddedClient> embedded = realClient ? nullptr : StartClient();
  qc::WindowSystem& windows = realClient ? *realClient : embedded->desktop;
  // Built once; every feature reaches the platform through these.
  qc::SettingsStore settings = qc::SettingsStore::UserStore();
  const qc::Services services = qc::PlatformServices(windows, prompts, settings);
  app.Serve(services);

  // The lasting windows live until the program ends at once; nothing deletes them.
  auto* frmMain = new qc::FrmMain;
  prompts.SetOwner(frmMain);  // prompts asked while no window of ours is active
  auto* frmMenu = new qc::FrmMenu;
  auto* frmMenu2 = new qc::FrmMenu2;
  qc::ConnectMenus(*frmMain, *frmMenu, *frmMenu2, services);

  auto* frmStart = new qc::FrmStart({frmMain, frmMenu, frmMenu2}, services);
  frmStart->Open();  // the generation warning, if any, comes before any other window

  // The user's window onto the simulated client: at the screen's right, beside the centred main
  // window. A real client shows itself.
  if (embedded) {
    auto* viewer = new qc::sim::ClientViewer(embedded->desktop, embedded->client.get());
    const QRect desk = QGuiApplication::primaryScreen()->availableGeometry();
    const int width = std::min(420, desk.width() / 3);
    viewer->setGeometry(desk.right() - width - 8, desk.top() + 30, width, desk.height() - 60);
    viewer->show();
  }
  qc::StartControlDumpFromEnvironment();
  return app.exec();
}
