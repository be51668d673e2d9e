// Every window in the fonts and languages that there are: nothing is cut, nothing overlaps.
#include <functional>
#include <memory>
#include <ostream>
#include <string>

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
#include "widgets/fitted_text.h"

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
constexpr const char* kLanguages[] = {"english", "deutsch", "espanol"};

class WindowCaptions : public testing::TestWithParam<NamedWindow> {
 protected:
  ~WindowCaptions() override { QApplication::setFont(font_before_); }

  /// Opens the window in every font and language, and has it looked at.
  void InEveryFontAndLanguage(const std::function<void(QWidget&)>& look) const {
    for (const char* language : kLanguages) {
      const TemporaryProgramFolder folder;
      UseLanguage(folder, QString::fromLatin1(language));
      for (const int size : kFontSizes) {
        SCOPED_TRACE(std::string(language) + " in " + std::to_string(size));
        QFont font = font_before_;
        font.setPointSize(size);
        QApplication::setFont(font);
        const auto window = GetParam().create();
        window->show();
        QApplication::processEvents();
        look(*window);
      }
    }
  }

 private:
  static void UseLanguage(const TemporaryProgramFolder& folder, const QString& language) {
    QByteArray ini = "[Dimension Config]\r\nID001=4x96,Tri,192.168.10.1:80\r\n";
    if (language != u"english"_s) {
      QFile sample(u"" BRIVON_SAMPLES "/languages/%1/langSetting.INI"_s.arg(language));
      EXPECT_TRUE(sample.open(QIODevice::ReadOnly));
      folder.UseLanguage(sample.readAll());
      ini += "[Language]\r\nLanguage=2\r\n";
    }
    folder.Configure(ini);
  }

  const QFont font_before_ = QApplication::font();
};

// Makes the window as small as it goes.
void MakeSmall(QWidget& window) {
  window.resize(1, 1);
  QApplication::processEvents();
}

// The controls of the window and of its frames that are seen.
QList<QWidget*> VisibleParts(const QWidget& parent) {
  QList<QWidget*> parts;
  for (QWidget* part : parent.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
    if (part->isVisible() && !part->isWindow()) parts.append(part);
  }
  return parts;
}

void ExpectNoControlOverAnother(QWidget& window) {
  QList<QWidget*> parents = {&window};
  for (QGroupBox* frame : window.findChildren<QGroupBox*>()) parents.append(frame);
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

void ExpectEveryCaptionWhole(const QWidget& window) {
  for (const auto* button : window.findChildren<QAbstractButton*>()) {
    if (!button->isVisible() || button->text().isEmpty()) continue;
    EXPECT_TRUE(IsWhole(FontOf(*button), Qt::TextShowMnemonic, button->text(), RoomOf(*button)))
        << button->objectName().toStdString();
  }
  for (const auto* label : window.findChildren<QLabel*>()) {
    const bool shows_data = qobject_cast<const ElidedLabel*>(label) != nullptr;
    if (!label->isVisible() || label->text().isEmpty() || shows_data) continue;
    // The launcher's labels may write their texts smaller.
    QFont font = label->font();
    if (window.layout() == nullptr) font.setPointSizeF(font.pointSizeF() * kSmallestScale);
    EXPECT_TRUE(IsWhole(font, 0, label->text(), label->size()))
        << label->objectName().toStdString();
  }
  for (const auto* frame : window.findChildren<QGroupBox*>()) {
    const int title = frame->fontMetrics().horizontalAdvance(frame->title());
    EXPECT_LE(title, frame->width()) << frame->objectName().toStdString();
  }
}

TEST_P(WindowCaptions, NothingIsCutAndNothingOverlaps) {
  InEveryFontAndLanguage([](QWidget& window) {
    ExpectNoControlOverAnother(window);
    ExpectEveryCaptionWhole(window);
    MakeSmall(window);
    ExpectNoControlOverAnother(window);
    ExpectEveryCaptionWhole(window);
  });
}

TEST_P(WindowCaptions, TheButtonsOfARowHaveOneSizeOfLetters) {
  InEveryFontAndLanguage([](QWidget& window) {
    const auto buttons = window.findChildren<CaptionButton*>();
    ASSERT_FALSE(buttons.isEmpty());
    for (const CaptionButton* button : buttons) {
      for (const CaptionButton* other : buttons) {
        if (other->parent() != button->parent() || other->y() != button->y()) continue;
        EXPECT_EQ(FontOf(*other).pointSizeF(), FontOf(*button).pointSizeF())
            << other->objectName().toStdString() << button->objectName().toStdString();
      }
    }
  });
}

class TaskWindowCaptions : public WindowCaptions {};

TEST_P(TaskWindowCaptions, EveryButtonIsWrittenInTheFontOfItsWindow) {
  InEveryFontAndLanguage([](QWidget& window) {
    for (const CaptionButton* button : window.findChildren<CaptionButton*>()) {
      EXPECT_EQ(button->Fit().scale, 1) << button->objectName().toStdString();
      EXPECT_EQ(button->font().pointSizeF(), window.font().pointSizeF());
    }
  });
}

TEST_P(TaskWindowCaptions, TheSmallestSizeIsWhatTheLayoutNeedsAndIsNoLargerThanTheScreen) {
  InEveryFontAndLanguage([](QWidget& window) {
    MakeSmall(window);
    const QLayout& layout = *window.layout();
    EXPECT_EQ(window.width(), layout.totalMinimumSize().width());
    EXPECT_EQ(window.height(), layout.totalMinimumHeightForWidth(window.width()));
    const QSize screen = window.screen()->availableSize();
    EXPECT_LE(window.width(), screen.width());
    EXPECT_LE(window.height(), screen.height());
  });
}

std::string WindowName(const testing::TestParamInfo<NamedWindow>& test) { return test.param.name; }

INSTANTIATE_TEST_SUITE_P(Launcher, WindowCaptions, testing::Values(kLauncher), WindowName);
INSTANTIATE_TEST_SUITE_P(Tasks, WindowCaptions, testing::ValuesIn(kTaskWindows), WindowName);
INSTANTIATE_TEST_SUITE_P(Tasks, TaskWindowCaptions, testing::ValuesIn(kTaskWindows), WindowName);

}  // namespace
