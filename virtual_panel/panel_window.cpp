#include "panel_window.h"

#include <optional>
#include <vector>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QInputDialog>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QStatusBar>
#include <QStyle>
#include <QTextDocument>
#include <QVBoxLayout>
#include <QtMath>

#include "core/code_page.h"

namespace VirtualPanel {
namespace {

enum TrafficColumn { kTimeColumn, kFrameColumn, kAnswerColumn, kMeaningColumn, kTrafficColumns };

constexpr qsizetype kMostVisibleBytes = 2000;
// Nobody sees a text move more often than that.
constexpr qint64 kLeastScrollMs = 20;
constexpr qint64 kMostTimerMs = qint64{24} * 60 * kMinuteMs;
constexpr qsizetype kMostToolTipEntries = 20;
constexpr qsizetype kMostToolTipCharacters = 600;
constexpr QSize kUsualSize(1100, 860);
constexpr int kLeastTrafficLines = 5;
// Smaller dots cannot be read: a panel that is too wide for them is scrolled.
constexpr double kLeastDotDistance = 2;
constexpr double kGoodDotDistance = 3;
// Larger ones are no dots any more.
constexpr double kMostDotDistance = 24;
constexpr double kMostOfScreen = 0.9;

// What the menu offers, by the names of the command line.
struct OfferedFault {
  const char* caption;
  const char* name;
};
constexpr OfferedFault kOfferedFaults[] = {
    {"&Silent", "silent"},
    {"Silent for the First &3 Answers", "silent:3"},
    {"&Garbled Answers", "garbage"},
    {"Lower-Case &Address", "lower-case"},
    {"Answers in &Pieces", "pieces"},
    {"Answers Late by &Half a Second", "late:500"},
    {"Answers &Late by Two Seconds", "late:2000"},
    {"Stray &Byte before Each Answer", "stray-byte"},
    {"&Cut the Line after the Next Frame", "close-after:1"},
    {"&Flood of Bytes", "flood"},
};

QString Separator() { return QStringLiteral("   \u00B7   "); }

// What a panel is and holds, in one line.
QString Facts(const PanelEngine& engine, int id, const QDateTime& now) {
  const Panel* panel = engine.FindPanel(id);
  const PanelDescription& description = panel->description;
  const auto shown = engine.ShownPage(id, now);
  QString page = QStringLiteral("no page shown");
  if (engine.PlayingAt(id, now)) {
    page = QStringLiteral("showing page %1").arg(*shown);
  } else if (engine.RunningPage(id, now)) {
    page = QStringLiteral("running page %1").arg(*shown);
  } else if (shown) {
    page = QStringLiteral("showing page %1, last received").arg(*shown);
  }
  const qsizetype count = panel->pages.size();
  const QStringList facts = {
      QStringLiteral("ID %1").arg(id, 3, 10, QLatin1Char('0')),
      QStringLiteral("%1x%2").arg(description.rows).arg(description.columns),
      description.tri_colour ? QStringLiteral("Tri") : QStringLiteral("Mono"),
      QLocale::c().toString(engine.Clock(id, now), QStringLiteral("ddd dd MMM yyyy HH:mm")),
      page,
      count == 1 ? QStringLiteral("1 page stored") : QStringLiteral("%1 pages stored").arg(count),
  };
  return facts.join(Separator());
}

QString PlayingText(const std::optional<Playing>& playing) {
  if (!playing) return QStringLiteral("no schedule is playing");
  const QStringList parts = {
      QStringLiteral("playing schedule %1").arg(QLatin1Char(playing->letter)),
      QStringLiteral("entry %1 of %2").arg(playing->entry).arg(playing->entries),
      QStringLiteral("page %1").arg(playing->page),
      EffectName(playing->feature),
  };
  return parts.join(Separator());
}

QString EntryCount(const Schedule& schedule) {
  const qsizetype count = schedule.entries.size();
  return count == 1 ? QStringLiteral("1 entry") : QStringLiteral("%1 entries").arg(count);
}

// What a click would show: page by page.
QString ScheduleToolTip(const Schedule& schedule) {
  QStringList lines;
  for (const ScheduleEntry& entry : schedule.entries) {
    if (lines.size() == kMostToolTipEntries) {
      lines.append(QString(QChar(0x2026)));
      break;
    }
    lines.append(QStringLiteral("%1. page %2, %3 s, %4")
                     .arg(lines.size() + 1)
                     .arg(entry.page)
                     .arg(entry.delay)
                     .arg(EffectName(entry.feature)));
  }
  return lines.join(QLatin1Char('\n'));
}

// What is answered, and how long after the frame, unless it is at once.
QString AnswerText(const FrameRecord& record) {
  if (record.answer.isEmpty()) return QStringLiteral("-");
  const QString answer = VisibleText(record.answer);
  if (record.answer_after_ms == 0) return answer;
  return answer + QStringLiteral(" after %1 ms").arg(record.answer_after_ms);
}

// A tool tip that shows its text as it is, also one that a tool tip would take for HTML. What has
// no blanks can be broken all the same, or it would end at the edge of the screen.
QString PlainToolTip(QString text) {
  constexpr int kLongestWord = 80;
  constexpr char16_t kBreak = 0x200B;  // has no width
  int length = 0;
  for (qsizetype at = 0; at < text.size(); ++at) {
    length = text[at].isSpace() ? 0 : length + 1;
    if (length <= kLongestWord) continue;
    text.insert(at, QChar(kBreak));
    length = 0;
  }
  if (!Qt::mightBeRichText(text)) return text;
  return QStringLiteral("<p style=\"white-space:pre-wrap\">%1</p>").arg(text.toHtmlEscaped());
}

// What is on a page, row by row, of each as much as the widest panel can show.
QString PageText(const PanelEngine& engine, int id, int page) {
  const StoredPage rows = engine.FindPanel(id)->pages.value(page);
  QStringList lines;
  for (auto row = rows.cbegin(); row != rows.cend(); ++row) {
    QString text = RowText(*row, engine.Clock(id));
    if (text.size() > kMostToolTipCharacters) {
      text.truncate(kMostToolTipCharacters);
      text += QChar(0x2026);
    }
    lines.append(QStringLiteral("%1.  ").arg(row.key()) + text);
  }
  return lines.join(QLatin1Char('\n'));
}

}  // namespace

QString VisibleText(const QByteArray& bytes) {
  const Brivon1::CodePage& code_page = Brivon1::CodePage::System();
  QString text;
  for (const char byte : bytes.first(qMin(bytes.size(), kMostVisibleBytes))) {
    if (byte == '\r') {
      text += QLatin1String("<CR>");
    } else if (byte == '\n') {
      text += QLatin1String("<LF>");
    } else if (!code_page.IsPrintable(byte)) {
      const auto value = static_cast<unsigned char>(byte);
      text += QStringLiteral("<%1>").arg(QString::number(value, 16).toUpper(), 2, QLatin1Char('0'));
    } else {
      text += code_page.ToCharacter(byte);
    }
  }
  if (bytes.size() > kMostVisibleBytes) text += QChar(0x2026);
  return text;
}

PanelWindow::PanelWindow(PanelEngine* engine, QWidget* parent)
    : QMainWindow(parent), engine_(engine) {
  setWindowTitle(QStringLiteral("Virtual panel"));
  auto* splitter = new QSplitter(Qt::Vertical);
  splitter->addWidget(MakePanels());
  splitter->addWidget(MakeTraffic());
  splitter->setStretchFactor(0, 3);
  splitter->setStretchFactor(1, 1);
  splitter->setChildrenCollapsible(false);
  splitter->setSizes({kUsualSize.height() * 3 / 4, kUsualSize.height() / 4});
  auto* centre = new QWidget;
  auto* layout = new QVBoxLayout(centre);
  layout->addWidget(splitter);
  setCentralWidget(centre);
  MakeMenus();
  lines_ = new QLabel;
  lines_->setObjectName(QStringLiteral("lines"));
  lines_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  statusBar()->addWidget(lines_, 1);
  fault_names_ = new QLabel;
  fault_names_->setObjectName(QStringLiteral("fault_names"));
  fault_names_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  // As a warning lamp: nobody should look for a fault that he has set himself.
  fault_names_->setStyleSheet(
      QStringLiteral("background: #ffb000; color: black; padding: 1px 8px; border-radius: 3px;"));
  statusBar()->addPermanentWidget(fault_names_);

  blink_timer_.setObjectName(QStringLiteral("blink_timer"));
  clock_timer_.setObjectName(QStringLiteral("clock_timer"));
  blink_timer_.setParent(this);
  clock_timer_.setParent(this);
  play_timer_.setObjectName(QStringLiteral("play_timer"));
  scroll_timer_.setObjectName(QStringLiteral("scroll_timer"));
  entrance_timer_.setObjectName(QStringLiteral("entrance_timer"));
  entrance_timer_.setParent(this);
  play_timer_.setParent(this);
  scroll_timer_.setParent(this);
  for (QTimer* timer : {&refresh_timer_, &blink_timer_, &clock_timer_, &play_timer_, &scroll_timer_,
                        &entrance_timer_}) {
    timer->setSingleShot(true);
  }
  for (QTimer* timer : {&blink_timer_, &play_timer_, &scroll_timer_, &entrance_timer_}) {
    timer->setTimerType(Qt::PreciseTimer);
  }
  connect(&refresh_timer_, &QTimer::timeout, this, &PanelWindow::Refresh);
  connect(&blink_timer_, &QTimer::timeout, this, &PanelWindow::Blink);
  connect(&clock_timer_, &QTimer::timeout, this, &PanelWindow::Refresh);
  connect(&play_timer_, &QTimer::timeout, this, &PanelWindow::Refresh);
  connect(&scroll_timer_, &QTimer::timeout, this, &PanelWindow::Scroll);
  connect(&entrance_timer_, &QTimer::timeout, this, &PanelWindow::Enter);
  connect(engine_, &PanelEngine::FaultsChanged, this, &PanelWindow::RefreshFaults);
  // Many frames that come at once are shown at once.
  const auto refresh_soon = [this] {
    if (!refresh_timer_.isActive()) refresh_timer_.start(0);
  };
  connect(engine_, &PanelEngine::Changed, this, refresh_soon);
  connect(engine_, &PanelEngine::FrameReceived, this,
          [this, refresh_soon](const FrameRecord& record) {
            AddTraffic(record);
            refresh_soon();
          });
  for (const FrameRecord& record : engine_->Frames()) AddTraffic(record);
  Refresh();
  RefreshFaults();

  resize(kUsualSize.boundedTo(screen()->availableSize() * kMostOfScreen));
}

void PanelWindow::SetLines(const QString& text) { lines_->setText(text); }

void PanelWindow::SetScrollSpeed(int dots_per_second) {
  for (const Place& place : std::as_const(places_)) place.view->SetScrollSpeed(dots_per_second);
  StartScrollTimer(engine_->Now());
}

QWidget* PanelWindow::MakePanels() {
  auto* panels = new QWidget;
  auto* layout = new QVBoxLayout(panels);
  layout->setContentsMargins(0, 0, 0, 0);
  for (const int id : engine_->PanelIds()) {
    Place place;
    place.id = id;
    place.view = new PanelView(engine_, id);
    place.view->setObjectName(QStringLiteral("panel_%1").arg(id));
    place.facts = new QLabel;
    place.facts->setObjectName(QStringLiteral("facts_%1").arg(id));
    place.facts->setTextInteractionFlags(Qt::TextSelectableByMouse);
    place.facts->setAlignment(Qt::AlignHCenter);
    place.facts->setWordWrap(true);
    place.playing = new QLabel;
    place.playing->setObjectName(QStringLiteral("playing_%1").arg(id));
    place.playing->setTextInteractionFlags(Qt::TextSelectableByMouse);
    place.playing->setAlignment(Qt::AlignHCenter);
    place.playing->hide();
    MakePages(&place);
    MakeSchedules(&place);

    // A panel that is too wide for the window is scrolled by itself.
    auto* scroll = new QScrollArea;
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setObjectName(QStringLiteral("scroll_%1").arg(id));
    scroll->setAccessibleName(QStringLiteral("Panel %1").arg(id));
    scroll->setWidget(place.view);
    place.scroll = scroll;
    layout->addWidget(scroll);
    layout->addWidget(place.facts);
    layout->addWidget(place.stored);
    layout->addWidget(place.playing);
    layout->addWidget(place.schedules);
    layout->addStretch();
    places_.append(place);
  }
  panels_ = new QScrollArea;
  panels_->setFrameShape(QFrame::NoFrame);
  panels_->setWidgetResizable(true);
  panels_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  panels_->setWidget(panels);
  panels_->installEventFilter(this);
  return panels_;
}

void PanelWindow::MakePages(Place* place) {
  const int id = place->id;
  place->pages = new PageStrip(
      [engine = engine_, id](int page) { return PlainToolTip(PageText(*engine, id, page)); });
  place->pages->setObjectName(QStringLiteral("pages_%1").arg(id));
  place->pages->setAccessibleName(QStringLiteral("Stored pages of panel %1").arg(id));
  connect(place->pages, &PageStrip::Chosen, this, [this, id](int page) { engine_->Run(id, page); });
  place->stored = new QWidget;
  place->stored->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  auto* layout = new QHBoxLayout(place->stored);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* caption = new QLabel(QStringLiteral("Pages"));
  caption->setObjectName(QStringLiteral("pages_caption_%1").arg(id));
  caption->setBuddy(place->pages);
  layout->addStretch();
  layout->addWidget(caption);
  layout->addWidget(place->pages);
  layout->addStretch();
  place->pages_caption = caption;
  place->stored->hide();
}

bool PanelWindow::RefreshPages(Place* place, const QDateTime& now) {
  const QList<int> pages = engine_->FindPanel(place->id)->pages.keys();
  place->pages->SetPages(pages, engine_->ShownPage(place->id, now));
  place->stored->setHidden(pages.isEmpty());
  const bool is_other = pages.size() != place->page_count;
  place->page_count = pages.size();
  return is_other;
}

void PanelWindow::MakeSchedules(Place* place) {
  place->schedules = new QWidget;
  place->schedules->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  auto* grid = new QGridLayout(place->schedules);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setAlignment(Qt::AlignHCenter);
  // All of them from the start, so that the tab key goes by letter in whatever order they arrive.
  for (char letter = kFirstScheduleLetter; letter <= kLastScheduleLetter; ++letter) {
    const QLatin1Char name(letter);
    auto* button = new QPushButton(place->schedules);
    button->setObjectName(QStringLiteral("schedule_%1_%2").arg(place->id).arg(name));
    button->setAccessibleDescription(
        QStringLiteral("Plays schedule %1 of panel %2").arg(name).arg(place->id));
    button->setCheckable(true);    // pressed down while it plays
    button->setAutoDefault(true);  // the enter key presses it, as the space bar does
    button->hide();
    connect(button, &QPushButton::clicked, this, [this, id = place->id, letter, button] {
      // Whether it is pressed down is for the engine to say.
      button->setChecked(true);
      engine_->Play(id, letter);
    });
    place->letters.insert(letter, button);
  }
  place->schedules->hide();
}

bool PanelWindow::RefreshSchedules(Place* place, const QDateTime& now) {
  const Schedules& schedules = engine_->FindPanel(place->id)->schedules;
  const auto playing = engine_->PlayingAt(place->id, now);
  QString shape;
  for (auto letter = place->letters.cbegin(); letter != place->letters.cend(); ++letter) {
    QPushButton* button = *letter;
    const auto schedule = schedules.constFind(letter.key());
    const bool is_there = schedule != schedules.constEnd();
    if (is_there) {
      const QStringList parts = {QString(QLatin1Char(letter.key())), ScheduleTime(*schedule),
                                 EntryCount(*schedule)};
      button->setText(parts.join(QStringLiteral("  \u00B7  ")));
      button->setToolTip(ScheduleToolTip(*schedule));
      button->setChecked(playing && playing->letter == letter.key());
      shape += button->text() + QLatin1Char('\n');
    }
    button->setVisible(is_there);
  }
  place->playing->setText(PlayingText(playing));
  place->playing->setVisible(!schedules.isEmpty());
  place->schedules->setVisible(!schedules.isEmpty());
  const bool is_other = shape != place->shape;
  place->shape = shape;
  return is_other;
}

int PanelWindow::ArrangeSchedules(Place* place, int width) {
  auto* grid = static_cast<QGridLayout*>(place->schedules->layout());
  while (QLayoutItem* item = grid->takeAt(0)) delete item;
  QSize largest;
  for (const QPushButton* button : std::as_const(place->letters)) {
    if (!button->isHidden()) largest = largest.expandedTo(button->sizeHint());
  }
  if (largest.isEmpty()) return 0;
  const int columns = qMax(1, (width + grid->spacing()) / (largest.width() + grid->spacing()));
  int count = 0;
  for (QPushButton* button : std::as_const(place->letters)) {
    if (button->isHidden()) continue;
    grid->addWidget(button, count / columns, count % columns);
    ++count;
  }
  const int rows = (count + columns - 1) / columns;
  return rows * largest.height() + (rows - 1) * grid->spacing();
}

void PanelWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::WindowStateChange) StartMotionTimers(engine_->Now());
}

void PanelWindow::hideEvent(QHideEvent* event) {
  QMainWindow::hideEvent(event);
  StartMotionTimers(engine_->Now());
}

void PanelWindow::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  StartMotionTimers(engine_->Now());
}

bool PanelWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == panels_ && event->type() == QEvent::Resize) Arrange();
  return QMainWindow::eventFilter(watched, event);
}

void PanelWindow::Arrange() {
  // Room for the scroll bar is always left, so that it cannot come and go by its own effect.
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  const double width = panels_->width() - bar;
  const int spacing = panels_->widget()->layout()->spacing();

  int free_height = panels_->height();
  for (Place& place : places_) {
    free_height -= place.facts->heightForWidth(qRound(width)) + 2 * spacing;
    if (!place.stored->isHidden()) {
      const int caption_width =
          place.pages_caption->sizeHint().width() + place.stored->layout()->spacing();
      free_height -= place.pages->Arrange(qRound(width) - caption_width) + spacing;
    }
    if (!place.schedules->isHidden()) {
      free_height -= place.playing->sizeHint().height() + ArrangeSchedules(&place, qRound(width)) +
                     2 * spacing;
    }
  }
  // Dot by dot of its own pixels each panel grows, the one with the smallest dots first, until it
  // is as wide as the window or there is no more height.
  const double pixel = 1 / devicePixelRatioF();
  std::vector<double> distances(static_cast<std::size_t>(places_.size()), kLeastDotDistance);
  const auto dots_of = [&](std::size_t i) {
    const auto& place = places_[static_cast<qsizetype>(i)];
    return SizeInDots(place.view->Picture().description);
  };
  const auto height_of = [&](std::size_t i, double distance) {
    return qCeil(dots_of(i).height() * distance);
  };
  for (std::size_t i = 0; i < distances.size(); ++i) free_height -= height_of(i, distances[i]);
  // If the panels must be scrolled anyway, they can have dots that are good to look at.
  if (free_height < 0) {
    for (std::size_t i = 0; i < distances.size(); ++i) {
      if (dots_of(i).width() * kGoodDotDistance <= width) distances[i] = kGoodDotDistance;
    }
  }
  for (;;) {
    std::optional<std::size_t> smallest;
    for (std::size_t i = 0; i < distances.size(); ++i) {
      const double next = distances[i] + pixel;
      const bool has_room = dots_of(i).width() * next <= width &&
                            height_of(i, next) - height_of(i, distances[i]) <= free_height &&
                            next <= kMostDotDistance;
      if (has_room && (!smallest || distances[i] < distances[*smallest])) smallest = i;
    }
    if (!smallest) break;
    double& distance = distances[*smallest];
    free_height -= height_of(*smallest, distance + pixel) - height_of(*smallest, distance);
    distance += pixel;
  }
  for (std::size_t i = 0; i < distances.size(); ++i) {
    const Place& place = places_[static_cast<qsizetype>(i)];
    const double dots_width = dots_of(i).width() * distances[i];
    const bool is_too_wide = dots_width > width;
    place.view->setMinimumWidth(is_too_wide ? qCeil(dots_width) : 0);
    // The tab key stops only where the arrow keys have something to scroll.
    place.scroll->setFocusPolicy(is_too_wide ? Qt::StrongFocus : Qt::NoFocus);
    place.scroll->setFixedHeight(height_of(i, distances[i]) + (is_too_wide ? bar : 0));
  }
}

QWidget* PanelWindow::MakeTraffic() {
  traffic_ = new QTableWidget(0, kTrafficColumns);
  traffic_->setObjectName(QStringLiteral("traffic"));
  traffic_->setAccessibleName(QStringLiteral("Traffic"));
  traffic_->setHorizontalHeaderLabels({QStringLiteral("Time"), QStringLiteral("Frame"),
                                       QStringLiteral("Answer"), QStringLiteral("Meaning")});
  traffic_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  traffic_->setSelectionBehavior(QAbstractItemView::SelectRows);
  traffic_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  traffic_->setAlternatingRowColors(true);
  traffic_->setShowGrid(false);
  traffic_->setWordWrap(false);
  traffic_->setTabKeyNavigation(false);
  traffic_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  traffic_->verticalHeader()->hide();
  const int line_height = traffic_->fontMetrics().height() + 6;
  traffic_->verticalHeader()->setDefaultSectionSize(line_height);
  traffic_->setMinimumHeight((kLeastTrafficLines + 2) * line_height);
  QHeaderView* header = traffic_->horizontalHeader();
  header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  header->setHighlightSections(false);
  header->setStretchLastSection(true);
  const int character = traffic_->fontMetrics().horizontalAdvance(QLatin1Char('0'));
  header->resizeSection(kTimeColumn, 14 * character);
  header->resizeSection(kFrameColumn, 48 * character);
  header->resizeSection(kAnswerColumn, 17 * character);

  auto* copy = new QAction(QStringLiteral("Copy"), traffic_);
  copy->setShortcut(QKeySequence::Copy);
  copy->setShortcutContext(Qt::WidgetShortcut);
  connect(copy, &QAction::triggered, this, &PanelWindow::CopyTraffic);
  traffic_->addAction(copy);
  traffic_->setContextMenuPolicy(Qt::ActionsContextMenu);
  return traffic_;
}

void PanelWindow::MakeMenus() {
  auto* file = menuBar()->addMenu(QStringLiteral("&Program"));
  file->addAction(QStringLiteral("&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q), this,
                  &PanelWindow::close);

  auto* faults = menuBar()->addMenu(QStringLiteral("&Faults"));
  faults->setObjectName(QStringLiteral("faults"));
  no_fault_ = faults->addAction(QStringLiteral("&None"), this, [this] {
    SetPlugged(true);
    engine_->SetFaults(Faults());
  });
  no_fault_->setObjectName(QStringLiteral("fault_none"));
  no_fault_->setCheckable(true);
  faults->addSeparator();
  for (const OfferedFault& fault : kOfferedFaults) {
    const QString name = QLatin1String(fault.name);
    QAction* action =
        faults->addAction(QLatin1String(fault.caption), this,
                          [this, name](bool is_wanted) { ToggleFault(name, is_wanted); });
    action->setObjectName(QStringLiteral("fault_") + name);
    action->setCheckable(true);
    faults_.insert(name, action);
  }
  faults->addAction(QStringLiteral("&Other\u2026"), this, &PanelWindow::AskForFault)
      ->setObjectName(QStringLiteral("fault_other"));
  faults->addSeparator();
  unplugged_ = faults->addAction(QStringLiteral("&Unplugged"), this,
                                 [this](bool is_wanted) { SetPlugged(!is_wanted); });
  unplugged_->setObjectName(QStringLiteral("fault_unplugged"));
  unplugged_->setCheckable(true);
}

void PanelWindow::ToggleFault(const QString& name, bool is_wanted) {
  Faults faults = engine_->CurrentFaults();
  if (is_wanted) {
    ParseFault(name, &faults, nullptr);
  } else {
    RemoveFault(name, &faults);
  }
  engine_->SetFaults(faults);
}

void PanelWindow::AskForFault() {
  bool is_entered = false;
  const QString name = QInputDialog::getText(
      this, QStringLiteral("Fault"),
      QStringLiteral("One of %1:").arg(FaultNames().join(QStringLiteral(", "))), QLineEdit::Normal,
      QString(), &is_entered);
  if (!is_entered) return;
  Faults faults = engine_->CurrentFaults();
  QString error;
  if (ParseFault(name.trimmed(), &faults, &error)) {
    engine_->SetFaults(faults);
  } else {
    QMessageBox::warning(this, QStringLiteral("Fault"), error);
  }
}

void PanelWindow::SetPlugged(bool plugged) {
  if (plugged != is_plugged_) {
    is_plugged_ = plugged;
    Q_EMIT Plugged(plugged);
  }
  RefreshFaults();
}

void PanelWindow::RefreshFaults() {
  const Faults& faults = engine_->CurrentFaults();
  for (auto fault = faults_.cbegin(); fault != faults_.cend(); ++fault) {
    (*fault)->setChecked(HasFault(fault.key(), faults));
  }
  QStringList names = NamesOf(faults);
  if (!is_plugged_) names.append(QStringLiteral("unplugged"));
  unplugged_->setChecked(!is_plugged_);
  no_fault_->setChecked(names.isEmpty());
  fault_names_->setText(QStringLiteral("Fault: ") + names.join(QStringLiteral(", ")));
  fault_names_->setHidden(names.isEmpty());
}

void PanelWindow::Refresh() {
  // One moment for all, so that what is shown and when it is next looked at fit each other.
  const QDateTime now = engine_->Now();
  bool is_other = false;
  for (Place& place : places_) {
    place.view->Refresh(now);
    place.facts->setText(Facts(*engine_, place.id, now));
    is_other |= RefreshPages(&place, now);
    is_other |= RefreshSchedules(&place, now);
  }
  if (is_other) Arrange();
  StartTimers(now);
  Q_EMIT Refreshed();
}

void PanelWindow::Blink() {
  for (const Place& place : std::as_const(places_)) {
    if (place.view->IsBlinking()) place.view->update();
  }
  StartMotionTimers(engine_->Now());
}

void PanelWindow::Scroll() {
  for (const Place& place : std::as_const(places_)) place.view->Scroll();
  StartScrollTimer(engine_->Now());
}

void PanelWindow::Enter() {
  const QDateTime now = engine_->Now();
  for (const Place& place : std::as_const(places_)) place.view->Enter(now);
  StartEntranceTimer(now);
  if (!entrance_timer_.isActive()) Q_EMIT Refreshed();
}

void PanelWindow::StartMotionTimers(const QDateTime& now) {
  // To the next change of phase, so that nothing drifts.
  bool is_blinking = false;
  for (const Place& place : std::as_const(places_)) is_blinking |= place.view->IsBlinking();
  if (is_blinking && IsSeen()) {
    blink_timer_.start(static_cast<int>(kBlinkMs - now.toMSecsSinceEpoch() % kBlinkMs));
  } else {
    blink_timer_.stop();
  }
  StartScrollTimer(now);
  StartEntranceTimer(now);
}

void PanelWindow::StartScrollTimer(const QDateTime& now) {
  std::optional<qint64> wait;
  for (const Place& place : std::as_const(places_)) {
    const auto to_next_dot = place.view->MsToNextDot(now);
    if (to_next_dot) wait = wait ? qMin(*wait, *to_next_dot) : *to_next_dot;
  }
  if (wait && IsSeen()) {
    scroll_timer_.start(static_cast<int>(qMax(*wait, kLeastScrollMs)));
  } else {
    scroll_timer_.stop();
  }
}

void PanelWindow::StartEntranceTimer(const QDateTime& now) {
  std::optional<qint64> wait;
  for (const Place& place : std::as_const(places_)) {
    const auto to_next_frame = place.view->MsToNextFrame(now);
    if (to_next_frame) wait = wait ? qMin(*wait, *to_next_frame) : *to_next_frame;
  }
  if (wait && IsSeen()) {
    entrance_timer_.start(static_cast<int>(*wait));
  } else {
    entrance_timer_.stop();
  }
}

void PanelWindow::StartTimers(const QDateTime& now) {
  // To the next minute of any panel: their clocks show no seconds.
  qint64 to_next_minute = kMinuteMs;
  for (const Place& place : std::as_const(places_)) {
    const qint64 of_day = engine_->Clock(place.id, now).time().msecsSinceStartOfDay();
    to_next_minute = qMin(to_next_minute, kMinuteMs - of_day % kMinuteMs);
  }
  clock_timer_.start(static_cast<int>(to_next_minute));
  // To the next page of a schedule that plays, or the beginning of one.
  const auto next_change = engine_->NextChange(now);
  if (next_change) {
    play_timer_.start(static_cast<int>(qMin(now.msecsTo(*next_change), kMostTimerMs)));
  } else {
    play_timer_.stop();
  }
  StartMotionTimers(now);
}

void PanelWindow::AddTraffic(const FrameRecord& record) {
  const QScrollBar* bar = traffic_->verticalScrollBar();
  const bool was_at_end = bar->value() == bar->maximum();
  while (traffic_->rowCount() >= kMostTrafficLines) traffic_->removeRow(0);
  const int row = traffic_->rowCount();
  traffic_->insertRow(row);
  const QStringList texts = {
      record.time.toString(QStringLiteral("HH:mm:ss.zzz")),
      VisibleText(record.bytes),
      AnswerText(record),
      record.description,
  };
  for (int column = 0; column < kTrafficColumns; ++column) {
    auto* item = new QTableWidgetItem(texts[column]);
    item->setToolTip(PlainToolTip(texts[column]));
    traffic_->setItem(row, column, item);
  }
  if (was_at_end) traffic_->scrollToBottom();
}

void PanelWindow::CopyTraffic() {
  QStringList lines;
  for (int row = 0; row < traffic_->rowCount(); ++row) {
    if (!traffic_->item(row, kTimeColumn)->isSelected()) continue;
    QStringList texts;
    for (int column = 0; column < kTrafficColumns; ++column) {
      texts.append(traffic_->item(row, column)->text());
    }
    lines.append(texts.join(QLatin1Char('\t')));
  }
  QApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
}

}  // namespace VirtualPanel
