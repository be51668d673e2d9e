// One line of JSON: an object whose members stand in the order in which they were added.
#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QList>
#include <QString>

namespace BrivonCtl {

class JsonLine {
 public:
  /// `key` is plain ASCII.
  JsonLine& Add(const char* key, const QString& text);
  JsonLine& Add(const char* key, int number);
  JsonLine& Add(const char* key, const QList<int>& numbers);
  JsonLine& AddFlag(const char* key, bool value);
  JsonLine& AddSeconds(const char* key, qint64 milliseconds);

  /// A member whose value is JSON already.
  JsonLine& AddJson(const char* key, const QByteArray& json);

  /// The whole object, UTF-8, without a line end.
  QByteArray Text() const { return '{' + members_.join(',') + '}'; }

 private:
  QByteArrayList members_;
};

/// An array of values that are JSON already.
QByteArray JsonArray(const QByteArrayList& values);

/// A text as JSON, in quotes.
QByteArray JsonText(const QString& text);

}  // namespace BrivonCtl
