#pragma once
// Start-up and shutdown: the splash window that refuses a second instance, warns about client
// generations that will not work, slides its version label, then restores the user's options
// and totals, greets the chat room and shows the main window; and the one exit sequence.
#include <QString>
#include <QWidget>
#include <memory>
#include <string>

class QLockFile;
class QTimer;

namespace qc {

class FrmMain;
class FrmMenu;
class FrmMenu2;
class Label;
class SettingsStore;
struct Services;

inline constexpr const char* kVersionCaption = "version qc23e";
inline constexpr const char* kWarningTitle = "Warning:";
inline constexpr int kWarningFlags = 4160;  // OK, information icon, system-modal
extern const char* const kGenerationWarningText;

inline constexpr int kVersionStartLeft = -975;
inline constexpr int kVersionStep = 100;
inline constexpr int kVersionStopBelow = 5700;
inline constexpr int kLoadIntervalMs = 500;

// The one instance of the program for this user: holds a lock file for the program's life.
// False when another running instance of the same user holds it.
class InstanceLock {
 public:
  explicit InstanceLock(const QString& lockPath = DefaultPath());
  ~InstanceLock();
  InstanceLock(const InstanceLock&) = delete;
  InstanceLock& operator=(const InstanceLock&) = delete;
  bool acquired() const { return acquired_; }
  static QString DefaultPath();  // in the user's runtime folder

 private:
  std::unique_ptr<QLockFile> lock_;
  bool acquired_ = false;
};

// The program's lasting windows: frmMain, and the hidden menu windows.
struct ProgramWindows {
  FrmMain* frmMain = nullptr;
  FrmMenu* frmMenu = nullptr;
  FrmMenu2* frmMenu2 = nullptr;
};

class FrmStart : public QWidget {
  Q_OBJECT
 public:
  // `windows` and `services` must outlive the splash; frmMain is shown at the end of the load.
  FrmStart(ProgramWindows windows, const Services& services, QWidget* parent = nullptr);

  Label* lblVersion;
  QTimer* tmrLoad;

  // The load of the window: the generation warning, centring, staying on top, the label put
  // outside the left edge, and tmrLoad started. The caller checks the instance lock first.
  void Open();

  // tmrLoad's single tick; unloads the splash at its end.
  void LoadTick();

 signals:
  void loaded();

 protected:
  // The splash cannot be closed from the window manager: the load goes on to the main window.
  void closeEvent(QCloseEvent* e) override;

 private:
  ProgramWindows w_;
  const Services& services_;
};

// Asks the client's generation and shows the warning for 2 and 4; true when it was shown.
bool WarnOnClientGeneration(const Services& services);

// Moves the label right by 100 twips at a time, pumping between steps, while it stands below
// 5700; it stops at 5725 from the start of -975.
void SlideVersionLabel(Label& label);

// Check marks, the four label values and the handle item's caption from the settings store.
void RestoreUserSettings(FrmMain& frmMain, FrmMenu& frmMenu, const Services& services);
// The thirteen keys: nine flags as "1"/"0", then mbs, ups, handle and rename as they stand.
void SaveUserSettings(const FrmMain& frmMain, const FrmMenu& frmMenu, SettingsStore& settings);

// The exit sequence of picExit and the menu's exit item: hide frmMain, farewell lines, save the
// thirteen keys, end the program with status 0 through the services' end. It does not look at a
// running tagging run.
void ExitProgram(FrmMain& frmMain, FrmMenu& frmMenu, const Services& services);

// The chat room's greeting and farewell; nothing without a room.
void GreetChatRoom(const FrmMain& frmMain, const Services& services);
void SayGoodbyeInChat(const FrmMain& frmMain, const Services& services);

}  // namespace qc
