#pragma once
// A live view of the simulated desktop, shown beside the main window when the program drives its
// embedded simulated client: the window tree (class, caption, hidden mark), what the client did
// (its event log) and the last operations the program made on the desktop (the trace).
//
// The view is for a person watching the program drive the client; the program never reads it.
// The tree is rebuilt only when the desktop's revision has moved; a timer looks every 100 ms.
#include <cstdint>
#include <deque>
#include <string>

#include <QWidget>

#include "sim/sim_client.h"
#include "sim/sim_desktop.h"

class QLabel;
class QPlainTextEdit;
class QTimer;
class QTreeWidget;

namespace qc::sim {

class ClientViewer : public QWidget {
 public:
  // The desktop and client must outlive the viewer; client may be null (a desktop only). The
  // viewer takes the desktop's trace listener for its lifetime.
  explicit ClientViewer(SimDesktop& desktop, SimClient* client = nullptr,
                        QWidget* parent = nullptr);
  ~ClientViewer() override;
  ClientViewer(const ClientViewer&) = delete;
  ClientViewer& operator=(const ClientViewer&) = delete;

  static constexpr int kPollMilliseconds = 100;
  static constexpr std::size_t kTraceLines = 200;

  // Brings the three views up to date now (the timer calls it).
  void Refresh();

  // What is shown, for tests: the tree as indented lines, the event and trace texts.
  QTreeWidget* tree() const { return tree_; }
  // One line about the client: its generation and whether and as whom it is signed on.
  QLabel* status() const { return status_; }
  QPlainTextEdit* events() const { return events_; }
  QPlainTextEdit* trace() const { return trace_; }
  // How many times the tree was rebuilt (it is rebuilt only when the desktop changed).
  int treeBuilds() const { return treeBuilds_; }

 private:
  void RebuildTree();
  void AppendEvent(const sim::ClientEvent& event);

  SimDesktop& desktop_;
  SimClient* client_;
  QLabel* status_ = nullptr;
  QTreeWidget* tree_ = nullptr;
  QPlainTextEdit* events_ = nullptr;
  QPlainTextEdit* trace_ = nullptr;
  QTimer* timer_ = nullptr;

  std::uint64_t shownRevision_ = 0;
  bool treeShown_ = false;
  int treeBuilds_ = 0;
  std::size_t shownEvents_ = 0;
  QString lastEvent_;  // the last event line shown, and how often it came in a row
  int lastRepeats_ = 0;
  std::deque<std::string> traceLines_;
  bool traceDirty_ = false;
};

}  // namespace qc::sim
