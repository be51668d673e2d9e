#include "row/editor_driver.h"

#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QLabel>
#include <QTest>

#include "support/shown_window.h"

using namespace Qt::StringLiterals;

EditorDriver::EditorDriver(const EditorKind& kind)
    : kind_(kind), owned_window_(kind.make_window(folder_)), window_(*owned_window_) {
  window_.show();
  Activate();
}

EditorDriver::~EditorDriver() { QGuiApplication::clipboard()->clear(); }

void EditorDriver::Press(const char* name) { QTest::mouseClick(Button(name), Qt::LeftButton); }

QString EditorDriver::FileName() { return Find<QLabel>("lblFileName")->text(); }

void EditorDriver::Keys(const QString& text) { QTest::keyClicks(window_.focusWidget(), text); }

void EditorDriver::Key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QTest::keyClick(window_.focusWidget(), key, modifiers);
}

void EditorDriver::Activate() { ActivateWindow(&window_); }

void EditorDriver::Choose(const char* button, const QString& path) {
  const FileChooser chooser(path);
  Press(button);
  dialogs_ += chooser.Count();
  dialog_ = chooser.Seen();
  Activate();
}

QString EditorDriver::WriteWork(const char* name, const QByteArray& row) {
  return folder_.Write(Text(name) + Text(kind_.extension), kind_.file_of(row));
}

QByteArray EditorDriver::SavedAs(const QString& path) {
  QWidget* const keyboard = window_.focusWidget();
  Choose("butSaveAs", path);
  keyboard->setFocus();
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : "no file";
}

QByteArray EditorDriver::Saved() { return SavedAs(Path("saved")); }

bool EditorDriver::Asks() {
  QWidget* const keyboard = window_.focusWidget();
  const MessageBoxReader boxes;  // answers with Cancel
  const ModalWindowDriver send(Text(kind_.send_dialog), [](QWidget* dialog) { dialog->close(); });
  Press("butSend");
  const bool asked = boxes.Texts().contains(Text(kQuestion));
  EXPECT_EQ(send.Count(), asked ? 0 : 1);
  Activate();
  keyboard->setFocus();
  return asked;
}

void EditorDriver::ExpectCursor(int column, int length) {
  EXPECT_EQ(Surface()->inputMethodQuery(Qt::ImCursorPosition).toInt(), column);
  EXPECT_EQ(ReadOut(Surface()).size(), length);
  const auto* position = window_.findChild<QLabel*>(u"lblPosition"_s);
  if (position == nullptr) return;
  EXPECT_EQ(position->text(), u"%1 of %2"_s.arg(column).arg(length));
}

int EditorDriver::CursorCell(QWidget* surface) {
  const QImage image = surface->grab().toImage();
  for (int x = 0; x < image.width(); x += 12) {
    if (IsLine(image, x, Qt::white)) return x / 12;
  }
  return -1;
}

bool EditorDriver::IsLine(const QImage& image, int x, const QColor& colour) {
  for (int y = 0; y < 20; ++y) {
    if (image.pixelColor(x, y) != colour) return false;
  }
  return true;
}
