// Where the manual is, and which of its chapters explains which window.
#pragma once

#include <QLatin1String>
#include <QString>
#include <QStringView>
#include <QUrl>

/// The anchor of the chapter for the window of this objectName, such as "the-page-editor"; that of
/// the keys for a window that has no chapter of its own.
QLatin1String ManualChapter(QStringView window);

/// The manual's path: in the program folder, in its folder "manual", or where there is none, in
/// what was installed with the program. There may be none at all: the path is where it should be.
QString ManualPath();

/// What opens the manual at path `manual` at a chapter. A desktop may hand a browser the name of a
/// file without what stands behind its "#", so each chapter has a small page that leads there;
/// without that page it is the manual itself and the anchor.
QUrl ChapterUrl(const QString& manual, QLatin1String chapter);
