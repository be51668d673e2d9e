#include "engine/faults.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

constexpr int kMostNumber = 1'000'000;

}  // namespace

QStringList FaultNames() {
  return {u"silent"_s,   u"silent:N"_s, u"garbage"_s,    u"lower-case"_s,    u"pieces"_s,
          u"pieces:N"_s, u"late:MS"_s,  u"stray-byte"_s, u"close-after:N"_s, u"flood"_s};
}

bool ParseFault(const QString& text, Faults* faults, QString* error) {
  const qsizetype colon = text.indexOf(QLatin1Char(':'));
  const QString name = text.left(colon);
  const bool has_number = colon >= 0;
  bool is_number = false;
  const int number = has_number ? text.mid(colon + 1).toInt(&is_number) : 0;
  const bool number_is_good = is_number && number >= 1 && number <= kMostNumber;

  const auto is = [&](const char* fault) { return name == QLatin1String(fault); };
  const auto plain = [&](const char* fault) { return is(fault) && !has_number; };
  const auto counted = [&](const char* fault) { return is(fault) && number_is_good; };

  if (plain("silent")) {
    faults->silent = true;
  } else if (counted("silent")) {
    faults->silent_answers = number;
  } else if (plain("garbage")) {
    faults->garbage = true;
  } else if (plain("lower-case")) {
    faults->lower_case = true;
  } else if (plain("stray-byte")) {
    faults->stray_byte = true;
  } else if (plain("pieces")) {
    faults->pieces = 3;
  } else if (counted("pieces")) {
    faults->pieces = number;
  } else if (counted("late")) {
    faults->late_ms = number;
  } else if (counted("close-after")) {
    faults->close_after_frame = number;
  } else if (plain("flood")) {
    faults->flood = true;
  } else {
    if (error != nullptr) {
      *error = u"fault \"%1\": expected one of %2"_s.arg(text, FaultNames().join(u", "_s));
    }
    return false;
  }
  return true;
}

void RemoveFault(const QString& text, Faults* faults) {
  const Faults none;
  Faults single;
  ParseFault(text, &single, nullptr);
  const auto reset = [&](auto Faults::*member) {
    if (single.*member != none.*member) faults->*member = none.*member;
  };
  reset(&Faults::silent);
  reset(&Faults::silent_answers);
  reset(&Faults::garbage);
  reset(&Faults::lower_case);
  reset(&Faults::stray_byte);
  reset(&Faults::pieces);
  reset(&Faults::late_ms);
  reset(&Faults::close_after_frame);
  reset(&Faults::flood);
}

bool HasFault(const QString& text, const Faults& faults) {
  Faults with = faults;
  return ParseFault(text, &with, nullptr) && with == faults;
}

QStringList NamesOf(const Faults& faults) {
  const Faults none;
  QStringList names;
  const auto add = [&](bool is_there, const char* name) {
    if (is_there) names.append(QLatin1String(name));
  };
  const auto add_number = [&](int number, int usual, const char* name) {
    if (number != usual) names.append(u"%1:%2"_s.arg(QLatin1String(name)).arg(number));
  };
  add(faults.silent, "silent");
  add_number(faults.silent_answers, none.silent_answers, "silent");
  add(faults.garbage, "garbage");
  add(faults.lower_case, "lower-case");
  add_number(faults.pieces, none.pieces, "pieces");
  add_number(faults.late_ms, none.late_ms, "late");
  add(faults.stray_byte, "stray-byte");
  add_number(faults.close_after_frame, none.close_after_frame, "close-after");
  add(faults.flood, "flood");
  return names;
}

}  // namespace VirtualPanel
