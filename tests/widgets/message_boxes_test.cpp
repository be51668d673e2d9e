// The line below a message: why something is not done, and what to do about it.
#include "widgets/message_boxes.h"

#include <functional>
#include <utility>

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QScreen>
#include <QWidget>

#include <gtest/gtest.h>

#include "support/message_box_reader.h"

using namespace Qt::StringLiterals;

namespace {

const QString kPath =
    u"/home/operator/brivon/pages/station/platform-7/departures-of-the-whole-summer-timetable/a.msg"_s;
const QString kRemedy = kPath + u": No such file or directory\nSave it, or choose another one."_s;

class MessageBoxes : public testing::Test {
 protected:
  /// Shows a refusal with `remedy` and looks at the line below its text.
  void Look(const QString& remedy, const std::function<void(QMessageBox&, QLabel&)>& look) {
    int seen = 0;
    const BoxLook box_look([&](QMessageBox& box) {
      auto* label = box.findChild<QLabel*>(u"qt_msgbox_informativelabel"_s);
      ASSERT_NE(label, nullptr);
      look(box, *label);
      ++seen;
    });
    ShowRefusal(&window_, {u"File not found!"_s, remedy});
    EXPECT_EQ(seen, 1);
  }

  /// While it lives, looks at each message box that is shown, and closes it.
  class BoxLook : public QObject {
   public:
    explicit BoxLook(std::function<void(QMessageBox&)> look) : look_(std::move(look)) {
      qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* object, QEvent* event) override {
      auto* box = qobject_cast<QMessageBox*>(object);
      if (box != nullptr && event->type() == QEvent::Show) {
        QMetaObject::invokeMethod(
            box,
            [this, box] {
              look_(*box);
              box->reject();
            },
            Qt::QueuedConnection);
      }
      return false;
    }

   private:
    std::function<void(QMessageBox&)> look_;
  };

  QWidget window_;
};

TEST_F(MessageBoxes, ARemedyCanBeSelectedAndCopied) {
  Look(kRemedy, [](QMessageBox&, QLabel& label) {
    EXPECT_EQ(label.text(), kRemedy);
    EXPECT_TRUE(label.textInteractionFlags() & Qt::TextSelectableByMouse);
    EXPECT_TRUE(label.textInteractionFlags() & Qt::TextSelectableByKeyboard);
    label.setSelection(0, static_cast<int>(kPath.size()));
    EXPECT_EQ(label.selectedText(), kPath);
  });
}

TEST_F(MessageBoxes, ARemedyIsReadAloudWithItsBox) {
  Look(kRemedy, [](QMessageBox& box, QLabel& label) {
    auto* accessible = QAccessible::queryAccessibleInterface(&box);
    EXPECT_EQ(accessible->text(QAccessible::Description), kRemedy);
    auto* line = QAccessible::queryAccessibleInterface(&label);
    EXPECT_EQ(line->text(QAccessible::Name), kRemedy);
    EXPECT_FALSE(line->state().invisible);
  });
}

TEST_F(MessageBoxes, APathIsNotCut) {
  Look(kRemedy, [](QMessageBox& box, QLabel& label) {
    const int path = label.fontMetrics().horizontalAdvance(kPath + u':');
    const int screen = box.screen()->availableSize().width();
    EXPECT_GE(label.width(), std::min(path, screen / 2));
    EXPECT_LE(box.width(), screen);
    EXPECT_GE(label.height(), label.heightForWidth(label.width()));
  });
}

TEST_F(MessageBoxes, AShortRemedyStandsOnOneLine) {
  const QString remedy = u"The page is 12x192, ID001 is 4x96."_s;
  Look(remedy, [&](QMessageBox&, QLabel& label) {
    EXPECT_GE(label.width(), label.fontMetrics().horizontalAdvance(remedy));
  });
}

TEST_F(MessageBoxes, OnlyAQuestionGivesWayToTheSaveQuestion) {
  QMessageBox told(QMessageBox::Information, u"Told"_s, u"A message"_s, QMessageBox::Ok, &window_);
  QMessageBox asked(QMessageBox::Question, u"Asked"_s, u"A question"_s, QMessageBox::Ok, &window_);
  told.show();
  asked.show();
  bool is_told = false;
  bool is_asked = true;
  const BoxLook look([&](QMessageBox& /*box*/) {
    is_told = told.isVisible();
    is_asked = asked.isVisible();
  });
  EXPECT_EQ(AskToSave(&window_), SaveAnswer::kCancel);
  EXPECT_TRUE(is_told);
  EXPECT_FALSE(is_asked);
}

TEST_F(MessageBoxes, AMessageWithoutARemedyIsAsItWas) {
  const BoxLook look([](QMessageBox& box) {
    EXPECT_EQ(box.findChild<QLabel*>(u"qt_msgbox_informativelabel"_s), nullptr);
    EXPECT_TRUE(box.accessibleDescription().isEmpty());
  });
  ShowMessage(&window_, u"Transmission finished!"_s);
}

}  // namespace
