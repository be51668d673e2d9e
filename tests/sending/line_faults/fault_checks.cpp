#include "sending/line_faults/fault_checks.h"

#include <QWidget>

QList<FaultPlace> FaultPlaces() {
  QList<FaultPlace> places;
  for (const FaultyWindow& window : FaultyWindows()) {
    for (const LineKind line : window.window.lines) places.append({&window, line});
  }
  return places;
}

std::string FaultPlaceName(const testing::TestParamInfo<FaultPlace>& info) {
  return info.param.window->name + std::string("Over") +
         (info.param.line == LineKind::kTcp ? "Tcp" : "Serial");
}

QList<bool> EnabledControls(const SendDialog& dialog) {
  QList<bool> enabled;
  for (const QWidget* control : dialog.window.findChildren<QWidget*>()) {
    if (!control->objectName().startsWith(QLatin1String("qt_"))) {
      enabled.append(control->isEnabled());
    }
  }
  return enabled;
}

QList<QByteArray> WithoutTimes(QList<QByteArray> frames) {
  constexpr qsizetype kDigits = 13;
  for (QByteArray& frame : frames) {
    if (frame.size() == kDigits + 5 && frame.startsWith("<T")) frame.remove(2, kDigits);
  }
  return frames;
}

void ExpectBoxes(const MessageBoxReader& boxes, const FaultyWindow& window, LineKind line,
                 const Outcome& outcome, const TemporaryProgramFolder& folder,
                 const QString& reason) {
  const QList<ExpectedBox> expected =
      BoxesOf(window, line, outcome.ending, outcome.arrived, folder, reason);
  ASSERT_EQ(boxes.Seen().size(), expected.size()) << boxes.Texts().join(u'\n').toStdString();
  const bool has_finished = outcome.ending == Ending::kFinished;
  for (qsizetype place = 0; place < expected.size(); ++place) {
    const SeenMessageBox& box = boxes.Seen().at(place);
    EXPECT_EQ(box.text, expected.at(place).text);
    EXPECT_EQ(box.informative, expected.at(place).informative);
    EXPECT_EQ(box.title, window.window.title);
    EXPECT_EQ(box.icon, has_finished ? window.window.success_icon : window.window.failure_icon);
    EXPECT_EQ(box.buttons, QMessageBox::Ok);
  }
}
