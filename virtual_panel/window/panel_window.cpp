#include "window/panel_window.h"

#include <utility>
#include <vector>

#include <QEvent>
#include <QMenuBar>
#include <QScreen>
#include <QSplitter>
#include <QStatusBar>
#include <QStyle>
#include <QVBoxLayout>

#include "base/tool_tip_text.h"
#include "window/elided_label.h"
#include "window/faults_menu.h"
#include "window/panel_sizes.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

constexpr QSize kUsualSize(1100, 860);
constexpr double kMostOfScreen = 0.9;

// A label of the status line that is seen at once, and only while it is wanted.
QLabel* MakeWarningLamp(const char* name) {
  auto* lamp = new ElidedLabel;
  lamp->setObjectName(QLatin1String(name));
  lamp->setStyleSheet(
      u"background: #ffb000; color: black; padding: 1px 8px; border-radius: 3px;"_s);
  lamp->hide();
  return lamp;
}

}  // namespace

PanelWindow::PanelWindow(PanelEngine* engine, QWidget* parent)
    : QMainWindow(parent), engine_(engine), traffic_(new TrafficTable) {
  setWindowTitle(u"Virtual panel"_s);
  auto* splitter = new QSplitter(Qt::Vertical);
  splitter->addWidget(MakePanels());
  splitter->addWidget(traffic_);
  splitter->setStretchFactor(0, 3);
  splitter->setStretchFactor(1, 1);
  splitter->setChildrenCollapsible(false);
  splitter->setSizes({kUsualSize.height() * 3 / 4, kUsualSize.height() / 4});
  auto* centre = new QWidget;
  auto* layout = new QVBoxLayout(centre);
  layout->addWidget(splitter);
  setCentralWidget(centre);
  MakeStatusLine();
  MakeMenus();
  FollowTheEngine();
  Refresh();
  resize(kUsualSize.boundedTo(screen()->availableSize() * kMostOfScreen));
}

QWidget* PanelWindow::MakePanels() {
  auto* panels = new QWidget;
  auto* layout = new QVBoxLayout(panels);
  layout->setContentsMargins(0, 0, 0, 0);
  for (const int id : engine_->PanelIds()) {
    auto* place = new PanelPlace(engine_, id, this);
    place->AddTo(layout);
    connect(place, &PanelPlace::Due, this, &PanelWindow::Refresh);
    connect(place, &PanelPlace::Entered, this, &PanelWindow::Refreshed);
    places_.append(place);
  }
  panels_ = new QScrollArea;
  panels_->setObjectName(u"panels"_s);
  panels_->setAccessibleName(u"Panels"_s);
  panels_->setFrameShape(QFrame::NoFrame);
  panels_->setWidgetResizable(true);
  panels_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  panels_->setWidget(panels);
  panels_->installEventFilter(this);
  return panels_;
}

void PanelWindow::MakeStatusLine() {
  lines_ = new ElidedLabel;
  lines_->setObjectName(u"lines"_s);
  statusBar()->addWidget(lines_, 1);
  unwritten_files_ = MakeWarningLamp("unwritten_files");
  statusBar()->addPermanentWidget(unwritten_files_);
  // Nobody should look for a fault that he has set himself.
  fault_names_ = MakeWarningLamp("fault_names");
  statusBar()->addPermanentWidget(fault_names_);
}

void PanelWindow::MakeMenus() {
  auto* program = menuBar()->addMenu(u"&Program"_s);
  program->addAction(u"&Quit"_s, QKeySequence(Qt::CTRL | Qt::Key_Q), this, &PanelWindow::close);
  auto* faults = new FaultsMenu(engine_, this);
  menuBar()->addMenu(faults);
  connect(faults, &FaultsMenu::Plugged, this, &PanelWindow::Plugged);
  connect(faults, &FaultsMenu::NamesChanged, this, &PanelWindow::ShowFaults);
  ShowFaults(faults->Names());
}

void PanelWindow::FollowTheEngine() {
  refresh_timer_.setSingleShot(true);
  connect(&refresh_timer_, &QTimer::timeout, this, &PanelWindow::Refresh);
  // Many frames that come at once are shown at once.
  const auto refresh_soon = [this] {
    if (!refresh_timer_.isActive()) refresh_timer_.start(0);
  };
  connect(engine_, &PanelEngine::Changed, this, refresh_soon);
  connect(engine_, &PanelEngine::FrameReceived, traffic_, &TrafficTable::Add);
  connect(engine_, &PanelEngine::FrameReceived, this, refresh_soon);
  for (const FrameRecord& record : engine_->Frames()) traffic_->Add(record);
}

void PanelWindow::SetLines(const QString& text) { lines_->setText(text); }

void PanelWindow::SetUnwrittenFiles(const QStringList& names, const QStringList& reasons) {
  unwritten_files_->setText(u"Not written: "_s + names.join(u", "_s));
  unwritten_files_->setToolTip(
      Brivon1::ToolTipText(reasons.join(QLatin1Char('\n')), Brivon1::LongLines::kBroken));
  unwritten_files_->setHidden(names.isEmpty());
}

void PanelWindow::ShowFaults(const QStringList& names) {
  fault_names_->setText(u"Fault: "_s + names.join(u", "_s));
  fault_names_->setHidden(names.isEmpty());
}

void PanelWindow::SetScrollSpeed(int dots_per_second) {
  for (PanelPlace* place : std::as_const(places_)) place->SetScrollSpeed(dots_per_second);
}

void PanelWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::WindowStateChange) TellWhetherSeen();
}

bool PanelWindow::focusNextPrevChild(bool next) {
  if (!QMainWindow::focusNextPrevChild(next)) return false;
  // The area of the panels scrolls by itself only to what is reached from within it.
  if (panels_->isAncestorOf(focusWidget())) panels_->ensureWidgetVisible(focusWidget());
  return true;
}

void PanelWindow::hideEvent(QHideEvent* event) {
  QMainWindow::hideEvent(event);
  TellWhetherSeen();
}

void PanelWindow::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  TellWhetherSeen();
}

void PanelWindow::TellWhetherSeen() {
  const bool is_seen = isVisible() && !isMinimized();
  for (PanelPlace* place : std::as_const(places_)) place->SetSeen(is_seen);
}

bool PanelWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == panels_ && event->type() == QEvent::Resize) Arrange();
  return QMainWindow::eventFilter(watched, event);
}

void PanelWindow::Arrange() {
  // Room for the scroll bar is always left, so that it cannot come and go by its own effect.
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  const int spacing = panels_->widget()->layout()->spacing();
  const int width = panels_->width() - bar;
  PanelPlace::Below below;
  std::vector<QSizeF> dots;
  for (const PanelPlace* place : std::as_const(places_)) {
    const PanelPlace::Below height = place->HeightBelow(width, spacing);
    below.most += height.most;
    below.least += height.least;
    dots.push_back(place->SizeInDots());
  }
  // What arrives finds its room kept, so that no panel gets smaller or moves. Only where the panels
  // can be seen without scrolling as long as they hold nothing, the room is not kept: then what
  // arrives is scrolled to. By what the panels hold, their size never changes.
  const int free_height = panels_->height() - LeastHeight(dots);
  const bool keeps_room = below.most <= free_height || below.least > free_height;
  const int height = panels_->height() - (keeps_room ? below.most : below.least);
  panels_->setVerticalScrollBarPolicy(keeps_room ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOn);
  for (PanelPlace* place : std::as_const(places_)) place->ArrangeBelow(width, keeps_room);
  const auto distances =
      DotDistances(dots, {static_cast<double>(width), height, 1 / devicePixelRatioF()});
  for (qsizetype i = 0; i < places_.size(); ++i) {
    places_[i]->SetDotDistance(distances[static_cast<std::size_t>(i)], width, bar);
  }
}

void PanelWindow::Refresh() {
  // One moment for all, so that what is shown and when it is next looked at fit each other.
  const QDateTime now = engine_->Now();
  bool is_other = false;
  for (PanelPlace* place : std::as_const(places_)) is_other |= place->Refresh(now);
  if (is_other) Arrange();
  Q_EMIT Refreshed();
}

}  // namespace VirtualPanel
