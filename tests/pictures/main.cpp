#include <cstdio>
#include <cstdlib>

#include <QApplication>
#include <QDir>
#include <QFont>
#include <QStyleFactory>

#include "pictures/picture_maker.h"

using namespace Qt::StringLiterals;

// The same style, font and size everywhere, and no caret that comes and goes.
int main(int argc, char** argv) {
  QApplication::setDesktopSettingsAware(false);
  QApplication application(argc, argv);
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() != 3) {
    std::fputs("brivon_pictures SAMPLES FOLDER\n", stderr);
    return EXIT_FAILURE;
  }
  QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
  QFont font(u"DejaVu Sans"_s);
  font.setPixelSize(12);
  QApplication::setFont(font);
  QApplication::setCursorFlashTime(0);
  if (!QDir().mkpath(arguments[2])) qFatal("cannot make the folder of the pictures");
  PictureMaker(arguments[1], arguments[2]).MakeAll();
  return EXIT_SUCCESS;
}
