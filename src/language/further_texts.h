// What the language file holds beside the captions and messages of its published format: the texts
// of the scrolling windows, tool tips, accessible names, informative lines, states, and messages
// that the published table lacks. All of them stand in one section, so that a file without it shows
// what it always has: those texts in English.
#pragma once

#include <span>

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

#include "language/caption_tables.h"

namespace ModuleLanguage {

/// The section of all further texts.
inline constexpr const char* kFurtherSection = "Texts";

/// A text that the program makes up itself.
struct FurtherText {
  const char* key;
  const char* text;  ///< The English one, its identity; "%1", "%2" are the places of values.
  const char* seen;  ///< Where the operator meets it: the line above its key in the template.
};

/// All of them. Texts that differ in their English spelling alone share a key; the first one is the
/// template's.
std::span<const FurtherText> FurtherTexts();

/// The text to show for an English one that stands in FurtherTexts(): the language file's where the
/// flag is set and the file has the key, else `text` itself. The published table does not count.
QString TranslateText(const QString& text);

/// The same, but `missing` where the language file does not say what to show for `text`.
QString TranslateText(const QString& text, const QString& missing);

/// The captions that the published tables lack, window by window. Every key names its window,
/// because they share the one section.
std::span<const CaptionTable> FurtherCaptions();

/// Those of one window; null for a window that has none.
const CaptionTable* FindFurtherCaptions(QStringView window);

/// The lines of a panel list as they are shown: with the colour types in the user's language.
QStringList ShownPanelLines(const QList<QByteArray>& lines);

}  // namespace ModuleLanguage
