#include "orders/order_checks.h"

#include <utility>

#include "base/file_checks.h"
#include "command/command_order.h"
#include "language/module_language.h"
#include "orders/carry_out.h"
#include "orders/rehearsal.h"
#include "page/page_order.h"
#include "schedule/schedule_order.h"
#include "schedule/schedule_transmission.h"
#include "scrolling/scrolling_order.h"
#include "sending/refusals.h"
#include "sending/sending_words.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

using Brivon1::Configuration;
using Brivon1::PanelEntry;
using Brivon1::PanelListEntry;
using Brivon1::Refusal;
using Brivon1::SendMode;
using ModuleLanguage::TranslateMessage;

/// The end of a window's message about the file of a kind.
QString MessageEnd(Action action) { return action == Action::kSendSchedule ? QString() : u"!"_s; }

/// The kind of file that the order sends, and whether its file is one.
Brivon1::FileSort SortOf(Action action) {
  if (action == Action::kSendSchedule) return Brivon1::FileSort::kSchedule;
  return action == Action::kSendScrolling ? Brivon1::FileSort::kScrolling
                                          : Brivon1::FileSort::kPage;
}

bool IsOfItsKind(const Order& order) {
  switch (SortOf(order.action)) {
    case Brivon1::FileSort::kSchedule:
      return Brivon1::IsScheduleFile(order.path, order.Files()).has_value();
    case Brivon1::FileSort::kScrolling:
      return Brivon1::IsScrollingFile(order.path, order.Files());
    default:
      return Brivon1::IsMessageFile(order.path, order.Files()).has_value();
  }
}

QString TextOf(const Refusal& refusal) {
  return refusal.remedy.isEmpty() ? refusal.text : refusal.text + u'\n' + refusal.remedy;
}

/// What keeps the file from being sent to any panel.
std::optional<Refusal> FileRefusal(const Order& order) {
  if (!order.Files().Exists(order.path)) {
    return Brivon1::FileNotFound(order.path, MessageEnd(order.action));
  }
  if (!IsOfItsKind(order)) {
    return Brivon1::WrongKind(order.path, SortOf(order.action), MessageEnd(order.action));
  }
  if (order.action != Action::kSendSchedule) return std::nullopt;
  auto refusal = Brivon1::CheckScheduleFile(order.path, order.number, order.Files());
  if (refusal && refusal->text.isEmpty()) {
    refusal->text = TranslateMessage(u"Error in opening file"_s);
  }
  return refusal;
}

std::optional<Refusal> PanelRefusal(const Order& order, const PanelListEntry& panel,
                                    const Configuration& configuration) {
  std::optional<Brivon1::Dimension> dimension;
  switch (order.action) {
    case Action::kSendPage:
      return Brivon1::CheckPageOrder({order.path, panel, order.number}, configuration,
                                     order.Files());
    case Action::kSendSchedule:
      return Brivon1::CheckScheduleOrder({order.path, panel}, configuration, dimension,
                                         order.Files());
    case Action::kSendScrolling:
      return Brivon1::CheckScrollingOrder({order.path, panel, order.number}, configuration,
                                          order.Files());
    default:
      break;
  }
  auto refusal = Brivon1::CheckCommandPanel(panel, configuration);
  if (!refusal && !NumberName(order.action).isEmpty()) {
    refusal = Brivon1::CheckCommandPage(order.number);
  }
  return refusal;
}

/// The windows find that out by connecting; here nobody is to have anything by then.
std::optional<Refusal> AddressRefusal(const Order& order, const PanelListEntry& panel,
                                      const Configuration& configuration) {
  if (ModeFor(order, configuration) != SendMode::kTcp || panel.endpoint.IsUsable()) {
    return std::nullopt;
  }
  return Brivon1::NoAddress(panel.id);
}

PanelResult Refused(int id, const Refusal& refusal) {
  return {id, Result::kRefused, refusal.text, refusal.remedy};
}

}  // namespace

QString WhatIsWrongWith(const Order& order, const Configuration& configuration) {
  if (ModeFor(order, configuration) == SendMode::kNone) return Brivon1::LinkNote(configuration);
  if (!SendsFile(order.action)) return {};
  if (order.copies && !order.copies->ReadFailure().isEmpty()) return order.copies->ReadFailure();
  if (const auto refusal = FileRefusal(order)) {
    return (order.path.isEmpty() ? u"\"\""_s : order.path) + u": "_s + TextOf(*refusal);
  }
  return {};
}

CheckedPanels CheckPanels(const Order& order, const QList<int>& ids,
                          const Configuration& configuration) {
  CheckedPanels checked;
  Rehearsals rehearsals(order, configuration);
  for (const int id : ids) {
    const PanelEntry& entry = configuration.panels[static_cast<std::size_t>(id)];
    if (!entry.IsConfigured()) {
      checked.unfit.append(
          Refused(id, {u"not configured; brivonctl list shows the panels that are"_s, {}}));
      continue;
    }
    const PanelListEntry panel{id, entry.rows, entry.columns, Brivon1::ReadEndpoint(entry.address)};
    auto refusal = PanelRefusal(order, panel, configuration);
    if (!refusal) refusal = AddressRefusal(order, panel, configuration);
    if (refusal) {
      checked.unfit.append(Refused(id, *refusal));
    } else if (const PanelResult result = rehearsals.Of(panel); result.result != Result::kOk) {
      checked.unfit.append({id, Result::kRefused, result.text, result.reason});
    } else {
      checked.fit.append(panel);
    }
  }
  return checked;
}

QString UnfitPanels(const QList<PanelResult>& unfit) {
  QList<std::pair<QString, QStringList>> groups;  // why -> the panels' names
  for (const PanelResult& panel : unfit) {
    const QString why = OneLine(panel.text + u'\n' + panel.reason);
    qsizetype place = 0;
    while (place < groups.size() && groups[place].first != why) ++place;
    if (place == groups.size()) groups.append({why, {}});
    groups[place].second.append(PanelName(panel.panel));
  }
  QStringList parts;
  for (const auto& [why, names] : groups) parts.append(names.join(u", "_s) + u": "_s + why);
  return parts.join(u"; "_s);
}

QString OneLine(const QString& text) {
  QString whole;
  for (const QString& line : text.split(u'\n', Qt::SkipEmptyParts)) {
    if (!whole.isEmpty()) whole += u".!?:"_s.contains(whole.back()) ? u" "_s : u". "_s;
    whole += line.trimmed();  // blanks may belong to a name
  }
  return whole;
}

}  // namespace BrivonCtl
