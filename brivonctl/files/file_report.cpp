#include "files/file_report.h"

#include <algorithm>

#include "base/code_page.h"
#include "usage/words.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

constexpr qsizetype kLongestQuotation = 60;

}  // namespace

QString KindName(FileKind kind) {
  switch (kind) {
    case FileKind::kPage:
      return u"page"_s;
    case FileKind::kSchedule:
      return u"schedule"_s;
    case FileKind::kScrolling:
      return u"scrolling"_s;
    case FileKind::kUnknown:
      break;
  }
  return u"unknown"_s;
}

void FileReport::Warn(int line, const QString& text) {
  problems.append({Problem::Weight::kWarning, line, text});
}

void FileReport::Refuse(int line, const QString& text) {
  problems.append({Problem::Weight::kError, line, text});
}

bool FileReport::IsRefused() const { return !FirstError().isEmpty(); }

int FileReport::Warnings() const {
  auto count = std::count_if(problems.begin(), problems.end(), [](const Problem& problem) {
    return problem.weight == Problem::Weight::kWarning;
  });
  for (const Named& file : files) count += file.report.Warnings();
  return static_cast<int>(count);
}

QString FileReport::FirstError() const {
  for (const Problem& problem : problems) {
    if (problem.weight != Problem::Weight::kError) continue;
    return problem.line == 0 ? problem.text : u"line %1: "_s.arg(problem.line) + problem.text;
  }
  for (const Named& file : files) {
    const QString error = file.report.FirstError();
    if (error.isEmpty()) continue;
    return u"line %1: "_s.arg(file.line) + Printable(file.report.path) + u": "_s + error;
  }
  return {};
}

QString Quoted(const QByteArray& bytes) {
  const Brivon1::CodePage& code_page = Brivon1::CodePage::System();
  QString text;
  for (const char byte : bytes.first(std::min(bytes.size(), kLongestQuotation))) {
    const QChar character = code_page.ToCharacter(byte);
    if (code_page.IsPrintable(byte) && character.isPrint()) {
      text += character;
    } else {
      text += Escaped(static_cast<unsigned char>(byte));
    }
  }
  return u'"' + text + (bytes.size() > kLongestQuotation ? u"...\""_s : u"\""_s);
}

}  // namespace BrivonCtl
