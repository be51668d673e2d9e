#include "widgets/manual_pages.h"

#include <algorithm>
#include <iterator>

#include <QDir>
#include <QFileInfo>

#include "store/configuration_store.h"

using namespace Qt::StringLiterals;

namespace {

struct Chapter {
  const char* window;
  const char* anchor;
};

constexpr Chapter kChapters[] = {
    {"frmMain", "the-launcher"},
    {"frmConfig", "setting-up-panels-and-the-link"},
    {"frmMsgEditor", "the-page-editor"},
    {"frmDimension", "beginning-a-page"},
    {"frmSendMsg", "sending-a-page"},
    {"frmSchedule", "schedules"},
    {"frmDelay", "delay-and-effect"},
    {"frmSendSch", "sending-a-schedule"},
    {"frmShiftMsg", "scrolling-messages"},
    {"frmSendShift", "sending-a-scrolling-message"},
    {"frmCommand", "commands"},
    {"frmPage", "commands"},
};

constexpr const char* kKeys = "all-keys";

}  // namespace

QLatin1String ManualChapter(QStringView window) {
  const auto* found = std::find_if(std::begin(kChapters), std::end(kChapters), [&](const auto& it) {
    return window == QLatin1String(it.window);
  });
  return QLatin1String(found == std::end(kChapters) ? kKeys : found->anchor);
}

QString ManualPath() {
  constexpr auto kManual = "manual/manual.html"_L1;
  const QString beside = Brivon1::InProgramFolder(kManual);
  const QString installed = QDir(Brivon1::InstalledFolder()).filePath(kManual);
  return !QFileInfo::exists(beside) && QFileInfo::exists(installed) ? installed : beside;
}

QUrl ChapterUrl(const QString& manual, QLatin1String chapter) {
  const QString page = QFileInfo(manual).dir().filePath(u"chapters/"_s + chapter + u".html"_s);
  if (QFileInfo::exists(page)) return QUrl::fromLocalFile(page);
  QUrl url = QUrl::fromLocalFile(manual);
  url.setFragment(chapter);
  return url;
}
