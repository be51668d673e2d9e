#include "engine/panel_description.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

// A plain decimal number from `least` to `most`, or nothing.
std::optional<int> NumberBetween(const QString& text, int least, int most) {
  if (text.isEmpty() || text.size() > 9) return std::nullopt;
  for (const QChar character : text) {
    if (character < QLatin1Char('0') || character > QLatin1Char('9')) return std::nullopt;
  }
  const int number = text.toInt();
  if (number < least || number > most) return std::nullopt;
  return number;
}

}  // namespace

std::optional<PanelDescription> ParsePanelDescription(const QString& text, QString* error) {
  const auto refuse = [&](const QString& reason) {
    if (error != nullptr) *error = u"panel \"%1\": %2"_s.arg(text, reason);
    return std::nullopt;
  };
  const QStringList parts = text.split(QLatin1Char(':'));
  if (parts.size() != 3) {
    return refuse(u"expected ID:ROWSxCOLUMNS:mono or ID:ROWSxCOLUMNS:tri"_s);
  }
  const QStringList size = parts[1].split(QLatin1Char('x'));
  if (size.size() != 2) return refuse(u"the size is ROWSxCOLUMNS, such as 4x96"_s);

  const auto id = NumberBetween(parts[0], 0, 255);
  if (!id) return refuse(u"the ID is a number from 1 to 255"_s);
  if (*id == 0) {
    return refuse(u"ID 0 addresses all panels and cannot be a panel of its own"_s);
  }
  const auto rows = NumberBetween(size[0], 1, 12);
  if (!rows) return refuse(u"a panel has 1 to 12 rows"_s);
  const auto columns = NumberBetween(size[1], 1, 3000);
  if (!columns) return refuse(u"a panel has 1 to 3000 dot columns"_s);
  const bool tri_colour = parts[2] == "tri"_L1;
  if (!tri_colour && parts[2] != "mono"_L1) {
    return refuse(u"the colour type is mono or tri"_s);
  }
  return PanelDescription{*id, *rows, *columns, tri_colour};
}

}  // namespace VirtualPanel
