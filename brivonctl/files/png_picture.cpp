#include "files/png_picture.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>

#include "panel_dots/panel_drawing.h"

namespace BrivonCtl {

QByteArray PngPicture(const PanelDots::PanelPicture& picture) {
  const QSize dots = PanelDots::SizeInDots(picture.shape).toSize();
  int pitch = kUsualPitch;
  while (pitch > 1 && qint64{dots.width()} * dots.height() * pitch * pitch > kMostPixels) --pitch;
  QImage image(dots * pitch, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  PanelDots::DrawPanel(&painter, image.size(), picture, 0);
  painter.end();
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "PNG");
  return buffer.data();
}

}  // namespace BrivonCtl
