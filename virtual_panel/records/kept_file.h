// The files that the program keeps written for whoever watches it from outside. Each says once that
// it cannot be written, and once that it is written again.
#pragma once

#include <functional>

#include <QByteArray>
#include <QFile>
#include <QObject>
#include <QString>
#include <QTimer>

namespace VirtualPanel {

class KeptFile : public QObject {
  Q_OBJECT

 public:
  // `name` says what the file is, such as "log".
  KeptFile(QString name, QString path, QObject* parent = nullptr);

  const QString& Name() const { return name_; }
  const QString& Path() const { return path_; }
  // Why the last attempt to write it failed; empty: it did not.
  const QString& Trouble() const { return trouble_; }
  // The trouble as a sentence; empty: there is none.
  QString TroubleText() const;

 Q_SIGNALS:
  // A sentence: that it cannot be written, or that it is written again.
  void Said(const QString& sentence);
  void TroubleChanged();

 protected:
  // What became of an attempt; `note` is added when it is the first good one after a trouble.
  void SetTrouble(const QString& reason, const QString& note = QString());

 private:
  QString name_;
  QString path_;
  QString trouble_;
};

// A file that grows line by line. It is looked for under its name before each line: one that was
// moved away, or whose folder was, is begun anew.
class LogFile : public KeptFile {
  Q_OBJECT

 public:
  using KeptFile::KeptFile;

  // Opens it, or makes it. False: it cannot be; Trouble says why.
  bool Open();
  // Adds a line, its line end included. One that cannot be written is lost, and counted; of one
  // that was written in part the rest comes before the next.
  void Append(const QByteArray& line);

 private:
  bool IsAtItsPath() const;
  bool Reopen(QString* reason);

  QFile file_;
  QByteArray unfinished_;
  qint64 lost_lines_ = 0;
};

// A file that is replaced as a whole. As long as it cannot be, it is tried again every second.
class WholeFile : public KeptFile {
  Q_OBJECT

 public:
  // `contents` gives what is to stand in it now.
  WholeFile(QString name, QString path, std::function<QByteArray()> contents,
            QObject* parent = nullptr);

  // False: it could not be written; Trouble says why.
  bool Write();

 private:
  QString Replace() const;  // the reason why not; empty: it is done

  std::function<QByteArray()> contents_;
  QTimer again_;
};

}  // namespace VirtualPanel
