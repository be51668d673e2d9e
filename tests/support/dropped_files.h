// Files that are dragged from another program and dropped on a window.
#pragma once

#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QList>
#include <QMimeData>
#include <QStringList>
#include <QUrl>
#include <QWidget>

/// Drags `data` into `target` and drops it there, as far as it is let; what follows is still to
/// come. Whether it is taken, as a copy.
inline bool BeginDrop(QWidget& target, const QMimeData& data,
                      Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction) {
  QDragEnterEvent enter(QPoint(5, 5), actions, &data, Qt::LeftButton, Qt::NoModifier);
  enter.ignore();
  QCoreApplication::sendEvent(&target, &enter);
  QDropEvent drop(QPointF(5, 5), actions, &data, Qt::LeftButton, Qt::NoModifier);
  drop.ignore();
  if (enter.isAccepted()) QCoreApplication::sendEvent(&target, &drop);
  return drop.isAccepted() && drop.dropAction() == Qt::CopyAction;
}

/// The same, with what follows.
inline bool Drop(QWidget& target, const QMimeData& data,
                 Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction) {
  const bool is_taken = BeginDrop(target, data, actions);
  QCoreApplication::processEvents();
  return is_taken;
}

inline bool DropFiles(QWidget& target, const QStringList& paths) {
  QMimeData data;
  QList<QUrl> urls;
  for (const QString& path : paths) urls.append(QUrl::fromLocalFile(path));
  data.setUrls(urls);
  return Drop(target, data);
}
