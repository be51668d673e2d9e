// What a person reads of a text that may be written as HTML.
#pragma once

#include <QString>
#include <QTextDocument>

/// What a tool tip of this text says when it is shown.
inline QString ShownText(const QString& tool_tip) {
  QTextDocument document;
  if (Qt::mightBeRichText(tool_tip)) {
    document.setHtml(tool_tip);
  } else {
    document.setPlainText(tool_tip);
  }
  return document.toPlainText();
}
