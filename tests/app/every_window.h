// A walk through all windows of the program, in the fonts and languages that there are, with what
// an eye looks for: a control that is cut, or that covers another.
#pragma once

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

struct NamedWindow {
  const char* name;
  std::function<std::unique_ptr<QWidget>()> create;
};

inline void PrintTo(const NamedWindow& window, std::ostream* out) { *out << window.name; }

template <typename Window>
NamedWindow Named(const char* name) {
  return {name, [] { return std::make_unique<Window>(nullptr); }};
}

template <typename Window>
NamedWindow NamedSender(const char* name) {
  return {name, [] { return std::make_unique<Window>(nullptr, QString()); }};
}

inline const NamedWindow kLauncher = {"frmMain", [] { return std::make_unique<frmMain>(); }};

inline const NamedWindow kTaskWindows[] = {
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

inline constexpr int kFontSizes[] = {9, 12, 14};
inline constexpr const char* kLanguages[] = {"english", "deutsch", "espanol"};

/// Opens a window of the program in every font and language.
class EveryFontAndLanguage : public testing::TestWithParam<NamedWindow> {
 protected:
  ~EveryFontAndLanguage() override { QApplication::setFont(font_before_); }

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
    if (language != QLatin1String("english")) {
      QFile sample(QStringLiteral(BRIVON_SAMPLES "/languages/%1/langSetting.INI").arg(language));
      EXPECT_TRUE(sample.open(QIODevice::ReadOnly));
      folder.UseLanguage(sample.readAll());
      ini += "[Language]\r\nLanguage=2\r\n";
    }
    folder.Configure(ini);
  }

  const QFont font_before_ = QApplication::font();
};

// Makes the window as small as it goes.
inline void MakeSmall(QWidget& window) {
  window.resize(1, 1);
  QApplication::processEvents();
}

// The controls of the window and of its frames that are seen.
inline QList<QWidget*> VisibleParts(const QWidget& parent) {
  QList<QWidget*> parts;
  for (QWidget* part : parent.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
    if (part->isVisible() && !part->isWindow()) parts.append(part);
  }
  return parts;
}

inline void ExpectNoControlOverAnother(QWidget& window) {
  QList<QWidget*> parents = {&window};
  for (QWidget* part : window.findChildren<QWidget*>()) {
    if (part->layout() != nullptr && part->isVisible()) parents.append(part);
  }
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
inline testing::AssertionResult IsWhole(const QFont& font, int flags, const QString& text,
                                        QSize room) {
  const QRect needed = QFontMetrics(font).boundingRect(QRect(0, 0, room.width(), 10000),
                                                       flags | Qt::TextWordWrap, text);
  if (needed.width() <= room.width() && needed.height() <= room.height()) {
    return testing::AssertionSuccess();
  }
  return testing::AssertionFailure()
         << text.toStdString() << " needs " << needed.width() << " x " << needed.height() << " of "
         << room.width() << " x " << room.height();
}

inline QFont FontOf(const QAbstractButton& button) {
  QFont font = button.font();
  if (const auto* caption = qobject_cast<const CaptionButton*>(&button)) {
    font.setPointSizeF(font.pointSizeF() * caption->Scale());
  }
  return font;
}

inline QSize RoomOf(const QAbstractButton& button) {
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

inline void ExpectEveryCaptionWhole(const QWidget& window) {
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

inline std::string WindowName(const testing::TestParamInfo<NamedWindow>& test) {
  return test.param.name;
}
