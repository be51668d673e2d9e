// Every window in the fonts and languages that there are: nothing is cut, nothing overlaps.
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <tuple>

#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QFontMetrics>
#include <QGroupBox>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QStyle>
#include <QStyleOptionButton>

#include <gtest/gtest.h>

#include "app/frmMain.h"
#include "command/frmCommand.h"
#include "config/frmConfig.h"
#include "page/frmDimension.h"
#include "page/frmMsgEditor.h"
#include "page/frmPage.h"
#include "page/frmSendMsg.h"
#include "schedule/frmDelay.h"
#include "schedule/frmSchedule.h"
#include "schedule/frmSendSch.h"
#include "scrolling/frmSendShift.h"
#include "scrolling/frmShiftMsg.h"
#include "support/program_folder.h"
#include "widgets/caption_button.h"
#include "widgets/elided_label.h"

using namespace Qt::StringLiterals;

namespace {

struct NamedWindow {
  const char* name;
  std::function<std::unique_ptr<QWidget>()> create;
};

void PrintTo(const NamedWindow& window, std::ostream* out) { *out << window.name; }

template <typename Window>
NamedWindow Named(const char* name) {
  return {name, [] { return std::make_unique<Window>(nullptr); }};
}

template <typename Window>
NamedWindow NamedSender(const char* name) {
  return {name, [] { return std::make_unique<Window>(nullptr, QString()); }};
}

const NamedWindow kLauncher = {"frmMain", [] { return std::make_unique<frmMain>(); }};

const NamedWindow kTaskWindows[] = {
    Named<frmMsgEditor>("frmMsgEditor"),
    Named<frmShiftMsg>("frmShiftMsg"),
    Named<frmSchedule>("frmSchedule"),
    Named<frmConfig>("frmConfig"),
    Named<frmCommand>("frmCommand"),
    Named<frmDimension>("frmDimension"),
    Named<frmPage>("frmPage"),
    Named<frmDelay>("frmDelay"),
    NamedSender<frmSendMsg>("frmSendMsg"),
    NamedSender<frmSendSch>("frmSendSch"),
    NamedSender<frmSendShift>("frmSendShift"),
};

constexpr int kFontSizes[] = {9, 12, 14};
const std::string kLanguages[] = {"english", "deutsch", "espanol"};

using Case = std::tuple<NamedWindow, int, std::string>;

std::string CaseName(const testing::TestParamInfo<Case>& test) {
  return std::string(std::get<0>(test.param).name) + "_" + std::to_string(std::get<1>(test.param)) +
         "_" + std::get<2>(test.param);
}

class WindowCaptions : public testing::TestWithParam<Case> {
 protected:
  WindowCaptions() {
    QFont font = font_before_;
    font.setPointSize(std::get<1>(GetParam()));
    QApplication::setFont(font);
    const QString language = QString::fromStdString(std::get<2>(GetParam()));
    QByteArray ini = "[Dimension Config]\r\nID001=4x96,Tri,192.168.10.1:80\r\n";
    if (language != u"english"_s) {
      QFile sample(u"" BRIVON_SAMPLES "/languages/%1/langSetting.INI"_s.arg(language));
      EXPECT_TRUE(sample.open(QIODevice::ReadOnly));
      folder_.UseLanguage(sample.readAll());
      ini += "[Language]\r\nLanguage=2\r\n";
    }
    folder_.Configure(ini);
    window_ = std::get<0>(GetParam()).create();
    window_->show();
    QApplication::processEvents();
  }

  ~WindowCaptions() override {
    window_.reset();
    QApplication::setFont(font_before_);
  }

  /// Makes the window as small as it goes.
  void MakeSmall() {
    window_->resize(1, 1);
    QApplication::processEvents();
  }

  void ExpectNoControlOverAnother() const;
  void ExpectEveryCaptionWhole() const;

  const QFont font_before_ = QApplication::font();
  TemporaryProgramFolder folder_;
  std::unique_ptr<QWidget> window_;
};

// The controls of the window and of its frames that are seen.
QList<QWidget*> VisibleParts(const QWidget& parent) {
  QList<QWidget*> parts;
  for (QWidget* part : parent.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
    if (part->isVisible() && !part->isWindow()) parts.append(part);
  }
  return parts;
}

void WindowCaptions::ExpectNoControlOverAnother() const {
  QList<QWidget*> parents = {window_.get()};
  for (QGroupBox* frame : window_->findChildren<QGroupBox*>()) parents.append(frame);
  for (const QWidget* parent : parents) {
    const QList<QWidget*> parts = VisibleParts(*parent);
    for (qsizetype i = 0; i < parts.size(); ++i) {
      EXPECT_TRUE(parent->rect().contains(parts[i]->geometry()))
          << parts[i]->objectName().toStdString();
      for (qsizetype j = 0; j < i; ++j) {
        EXPECT_FALSE(parts[i]->geometry().intersects(parts[j]->geometry()))
            << parts[i]->objectName().toStdString() << parts[j]->objectName().toStdString();
      }
    }
  }
}

// Whether `text` fits into `room`, wrapped between its words.
testing::AssertionResult IsWhole(const QFont& font, int flags, const QString& text, QSize room) {
  const QRect needed = QFontMetrics(font).boundingRect(QRect(0, 0, room.width(), 10000),
                                                       flags | Qt::TextWordWrap, text);
  if (needed.width() <= room.width() && needed.height() <= room.height()) {
    return testing::AssertionSuccess();
  }
  return testing::AssertionFailure()
         << text.toStdString() << " needs " << needed.width() << " x " << needed.height() << " of "
         << room.width() << " x " << room.height();
}

QFont FontOf(const QAbstractButton& button) {
  QFont font = button.font();
  if (const auto* caption = qobject_cast<const CaptionButton*>(&button)) {
    font.setPointSizeF(font.pointSizeF() * caption->Scale());
  }
  return font;
}

QSize RoomOf(const QAbstractButton& button) {
  constexpr int kBorder = 3;
  QStyleOptionButton option;
  option.initFrom(&button);
  const QStyle& style = *button.style();
  if (qobject_cast<const QCheckBox*>(&button) != nullptr) {
    return style.subElementRect(QStyle::SE_CheckBoxContents, &option, &button).size();
  }
  if (qobject_cast<const QRadioButton*>(&button) != nullptr) {
    return style.subElementRect(QStyle::SE_RadioButtonContents, &option, &button).size();
  }
  return button.size() - QSize(2 * kBorder, 2 * kBorder);
}

void WindowCaptions::ExpectEveryCaptionWhole() const {
  for (const auto* button : window_->findChildren<QAbstractButton*>()) {
    if (!button->isVisible() || button->text().isEmpty()) continue;
    EXPECT_TRUE(IsWhole(FontOf(*button), Qt::TextShowMnemonic, button->text(), RoomOf(*button)))
        << button->objectName().toStdString();
  }
  for (const auto* label : window_->findChildren<QLabel*>()) {
    const bool shows_data = qobject_cast<const ElidedLabel*>(label) != nullptr;
    if (!label->isVisible() || label->text().isEmpty() || shows_data) continue;
    // The launcher's labels may write their texts smaller.
    QFont font = label->font();
    if (window_->layout() == nullptr) font.setPointSizeF(font.pointSizeF() * kSmallestScale);
    EXPECT_TRUE(IsWhole(font, 0, label->text(), label->size()))
        << label->objectName().toStdString();
  }
  for (const auto* frame : window_->findChildren<QGroupBox*>()) {
    const int title = frame->fontMetrics().horizontalAdvance(frame->title());
    EXPECT_LE(title, frame->width()) << frame->objectName().toStdString();
  }
}

TEST_P(WindowCaptions, NothingIsCutAndNothingOverlaps) {
  ExpectNoControlOverAnother();
  ExpectEveryCaptionWhole();
  MakeSmall();
  ExpectNoControlOverAnother();
  ExpectEveryCaptionWhole();
}

TEST_P(WindowCaptions, TheButtonsOfARowHaveOneSizeOfLetters) {
  const auto buttons = window_->findChildren<CaptionButton*>();
  ASSERT_FALSE(buttons.isEmpty());
  for (const CaptionButton* button : buttons) {
    for (const CaptionButton* other : buttons) {
      if (other->parent() != button->parent() || other->y() != button->y()) continue;
      EXPECT_EQ(FontOf(*other).pointSizeF(), FontOf(*button).pointSizeF())
          << other->objectName().toStdString() << button->objectName().toStdString();
    }
  }
}

class TaskWindowCaptions : public WindowCaptions {};

TEST_P(TaskWindowCaptions, EveryButtonIsWrittenInTheFontOfItsWindow) {
  for (const CaptionButton* button : window_->findChildren<CaptionButton*>()) {
    EXPECT_EQ(button->Fit().scale, 1) << button->objectName().toStdString();
    EXPECT_EQ(button->font().pointSizeF(), window_->font().pointSizeF());
  }
}

TEST_P(TaskWindowCaptions, TheSmallestSizeIsWhatTheLayoutNeedsAndIsNoLargerThanTheScreen) {
  MakeSmall();
  const QLayout& layout = *window_->layout();
  EXPECT_EQ(window_->width(), layout.totalMinimumSize().width());
  EXPECT_EQ(window_->height(), layout.totalMinimumHeightForWidth(window_->width()));
  const QSize screen = window_->screen()->availableSize();
  EXPECT_LE(window_->width(), screen.width());
  EXPECT_LE(window_->height(), screen.height());
}

INSTANTIATE_TEST_SUITE_P(Launcher, WindowCaptions,
                         testing::Combine(testing::Values(kLauncher), testing::ValuesIn(kFontSizes),
                                          testing::ValuesIn(kLanguages)),
                         CaseName);
INSTANTIATE_TEST_SUITE_P(Tasks, WindowCaptions,
                         testing::Combine(testing::ValuesIn(kTaskWindows),
                                          testing::ValuesIn(kFontSizes),
                                          testing::ValuesIn(kLanguages)),
                         CaseName);
INSTANTIATE_TEST_SUITE_P(Tasks, TaskWindowCaptions,
                         testing::Combine(testing::ValuesIn(kTaskWindows),
                                          testing::ValuesIn(kFontSizes),
                                          testing::ValuesIn(kLanguages)),
                         CaseName);

}  // namespace
