#include "ui/viewer/client_viewer.h"

#include <cctype>
#include <functional>
#include <map>

#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSplitter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "base/cp1252.h"
#include "sim/sim_mail.h"

namespace qc::sim {
namespace {

std::string Lower(std::string s) {
  for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return s;
}

// The client's texts are Windows-1252 bytes.
QString Qs(const std::string& s) { return QString::fromStdString(Cp1252ToUtf8(s)); }

QPlainTextEdit* ReadOnlyText(int maxLines) {
  auto* text = new QPlainTextEdit;
  text->setReadOnly(true);
  text->setLineWrapMode(QPlainTextEdit::NoWrap);
  text->setMaximumBlockCount(maxLines);
  QFont mono = text->font();
  mono.setFamily(QStringLiteral("monospace"));
  mono.setStyleHint(QFont::Monospace);
  text->setFont(mono);
  return text;
}

// A titled pane of the splitter.
QWidget* Pane(const QString& title, QWidget* content) {
  auto* pane = new QWidget;
  auto* layout = new QVBoxLayout(pane);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(new QLabel(title));
  layout->addWidget(content);
  return pane;
}

QString ClientName(int generation) {
  switch (generation) {
    case 5: return QStringLiteral("AOL 5.0");
    case 4: return QStringLiteral("AOL 4.0");
    case 3: return QStringLiteral("AOL 95");
    default: return QStringLiteral("an older AOL client");
  }
}

QString StatusText(const SimClient* client) {
  if (!client) return QStringLiteral("no simulated client");
  if (!client->Running()) return ClientName(client->generation()) + QStringLiteral(", not running");
  if (!client->signedOn()) return ClientName(client->generation()) + QStringLiteral(", signed off");
  return ClientName(client->generation()) + QStringLiteral(", signed on as ") +
         Qs(client->screenName());
}

}  // namespace

ClientViewer::ClientViewer(SimDesktop& desktop, SimClient* client, QWidget* parent)
    : QWidget(parent), desktop_(desktop), client_(client) {
  setWindowTitle(QStringLiteral("simulated AOL client"));
  resize(520, 640);

  tree_ = new QTreeWidget;
  tree_->setColumnCount(3);
  tree_->setHeaderLabels({QStringLiteral("Class"), QStringLiteral("Caption"), QString()});
  tree_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  tree_->setUniformRowHeights(true);
  events_ = ReadOnlyText(2000);
  events_->setObjectName(QStringLiteral("events"));
  trace_ = ReadOnlyText(static_cast<int>(kTraceLines));

  auto* split = new QSplitter(Qt::Vertical);
  split->addWidget(Pane(QStringLiteral("Windows"), tree_));
  split->addWidget(Pane(QStringLiteral("Client events"), events_));
  split->addWidget(Pane(QStringLiteral("Last operations"), trace_));
  split->setStretchFactor(0, 3);
  split->setStretchFactor(1, 1);
  split->setStretchFactor(2, 1);
  status_ = new QLabel;
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(status_);
  layout->addWidget(split);

  // The listener runs on every call the program makes: it only keeps the line.
  desktop_.SetTraceListener([this](const TraceEntry& e) {
    traceLines_.push_back(e.line);
    if (traceLines_.size() > kTraceLines) traceLines_.pop_front();
    traceDirty_ = true;
  });

  timer_ = new QTimer(this);
  timer_->setInterval(kPollMilliseconds);
  QObject::connect(timer_, &QTimer::timeout, this, [this] { Refresh(); });
  timer_->start();
  Refresh();
}

ClientViewer::~ClientViewer() { desktop_.SetTraceListener(nullptr); }

void ClientViewer::Refresh() {
  const QString status = StatusText(client_);
  if (status_->text() != status) status_->setText(status);
  if (!treeShown_ || desktop_.Revision() != shownRevision_) RebuildTree();

  if (client_) {
    const auto& events = client_->Events();
    if (events.size() < shownEvents_) {  // the log was cleared
      events_->clear();
      shownEvents_ = 0;
      lastEvent_.clear();
    }
    for (; shownEvents_ < events.size(); ++shownEvents_) AppendEvent(events[shownEvents_]);
  }

  if (traceDirty_) {
    traceDirty_ = false;
    QString text;
    for (const std::string& line : traceLines_) {
      if (!text.isEmpty()) text += QLatin1Char('\n');
      text += Qs(line);
    }
    trace_->setPlainText(text);
    trace_->verticalScrollBar()->setValue(trace_->verticalScrollBar()->maximum());
  }
}

void ClientViewer::AppendEvent(const sim::ClientEvent& e) {
  QString line = Qs(e.kind + ": " + e.detail);
  // The dead check writes to "-" on purpose: the client's refusal is the answer it waits for.
  if (e.kind == sim::kEventMailRefused && e.detail == "-") line += QStringLiteral(" (the dead check's probe)");
  if (line == lastEvent_) {
    // A wait pressing again and again shows as one line with its count.
    ++lastRepeats_;
    QTextCursor c(events_->document()->lastBlock());
    c.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    c.insertText(line + QStringLiteral(" (x%1)").arg(lastRepeats_));
    return;
  }
  lastEvent_ = line;
  lastRepeats_ = 1;
  events_->appendPlainText(line);
}

void ClientViewer::RebuildTree() {
  shownRevision_ = desktop_.Revision();
  treeShown_ = true;
  ++treeBuilds_;
  tree_->setUpdatesEnabled(false);
  tree_->clear();
  // Front to back, as the lookups see them.
  std::function<void(Hwnd, QTreeWidgetItem*)> add = [&](Hwnd parent, QTreeWidgetItem* into) {
    // Classes numbered within their siblings as the trace names them ("_AOL_Icon#3").
    std::map<std::string, int> seen;
    for (Hwnd h : desktop_.Children(parent)) {
      const std::string className = desktop_.ClassOf(h);
      const int n = ++seen[Lower(className)];
      const std::string label = className + (n > 1 ? "#" + std::to_string(n) : "");
      QStringList columns{Qs(label), Qs(desktop_.TextOf(h)),
                          desktop_.Visible(h) ? QString() : QStringLiteral("hidden")};
      auto* item = into ? new QTreeWidgetItem(into, columns) : new QTreeWidgetItem(tree_, columns);
      item->setToolTip(0, QStringLiteral("0x%1").arg(h, 0, 16));
      add(h, item);
    }
  };
  add(0, nullptr);
  tree_->expandAll();
  tree_->setUpdatesEnabled(true);
}

}  // namespace qc::sim
