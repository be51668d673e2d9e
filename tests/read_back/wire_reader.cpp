#include "read_back/wire_reader.h"

namespace {

/// Bytes that are read from the front. Once something is missing nothing more is there.
class Reader {
 public:
  explicit Reader(QByteArrayView bytes) : bytes_(bytes) {}

  bool IsGood() const { return is_good_; }
  QByteArrayView Rest() const { return bytes_; }

  void Expect(QByteArrayView what) {
    if (Take(what.size()) != what) is_good_ = false;
  }

  QByteArrayView Take(qsizetype count) {
    if (!is_good_ || bytes_.size() < count) {
      is_good_ = false;
      return {};
    }
    const QByteArrayView taken = bytes_.first(count);
    bytes_ = bytes_.sliced(count);
    return taken;
  }

  /// The digits up to the next other byte, at least `least` and at most `most` of them.
  int Number(qsizetype least, qsizetype most) {
    qsizetype count = 0;
    int number = 0;
    while (count < bytes_.size() && count < most && bytes_[count] >= '0' && bytes_[count] <= '9') {
      number = number * 10 + (bytes_[count++] - '0');
    }
    if (count < least) is_good_ = false;
    Take(is_good_ ? count : 0);
    return number;
  }

  /// The two upper-case hexadecimal digits of a panel's ID, in "<ID" and ">".
  int Address() {
    Expect("<ID");
    int id = 0;
    for (const char digit : Take(2)) {
      const qsizetype value = QByteArrayView("0123456789ABCDEF").indexOf(digit);
      if (value < 0) is_good_ = false;
      id = id * 16 + static_cast<int>(value);
    }
    Expect(">");
    return id;
  }

  /// Takes the line end off the back; there is no other one.
  void EndLine() {
    if (!bytes_.endsWith("\r\n")) is_good_ = false;
    bytes_.chop(is_good_ ? 2 : 0);
    if (bytes_.contains('\r') || bytes_.contains('\n')) is_good_ = false;
  }

 private:
  QByteArrayView bytes_;
  bool is_good_ = true;
};

}  // namespace

std::optional<WireRow> ReadPageRow(QByteArrayView frame) {
  Reader reader(frame);
  reader.EndLine();
  WireRow row;
  row.panel = reader.Address();
  reader.Expect("<L");
  row.row = reader.Number(2, 2);
  reader.Expect("><P");
  row.page = reader.Number(3, 3);
  reader.Expect(">");
  if (!reader.IsGood() || !reader.Rest().endsWith(' ')) return std::nullopt;
  row.text = reader.Rest().chopped(1).toByteArray();
  return row;
}

std::optional<WireRow> ReadScrollingRow(QByteArrayView frame) {
  Reader reader(frame);
  reader.EndLine();
  WireRow row;
  row.panel = reader.Address();
  reader.Expect("<L");
  row.row = reader.Number(1, 2);
  reader.Expect(">");
  if (!reader.IsGood()) return std::nullopt;
  row.text = reader.Rest().toByteArray();
  return row;
}

std::optional<WireSchedule> ReadSchedule(QByteArrayView frame) {
  Reader reader(frame);
  reader.EndLine();
  WireSchedule schedule;
  schedule.panel = reader.Address();
  reader.Expect("<T");
  for (const char letter : reader.Take(1)) schedule.letter = letter;
  reader.Expect(">");
  schedule.weekday = reader.Take(1).toByteArray();
  schedule.hour = reader.Take(2).toByteArray();
  schedule.minute = reader.Take(2).toByteArray();
  while (reader.IsGood()) {
    WireStep step;
    step.page = reader.Number(3, 3);
    step.delay = reader.Number(2, 5);
    for (const char effect : reader.Take(1)) step.effect = effect;
    schedule.steps.push_back(step);
    if (reader.Rest().isEmpty()) break;
    reader.Expect(",");
  }
  if (!reader.IsGood()) return std::nullopt;
  return schedule;
}

ShownRow ReadText(QByteArrayView text) {
  ShownRow shown;
  ShownCharacter look;
  const auto show = [&](ShownCharacter::Kind kind, char character) {
    shown.push_back({kind, character, look.size, look.colour, look.blinking});
  };
  qsizetype at = 0;
  while (at < text.size()) {
    const QByteArrayView code = text.sliced(at).first(qMin<qsizetype>(4, text.size() - at));
    at += 4;
    if (code == "<DD>") {
      show(ShownCharacter::Kind::kDate, ' ');
    } else if (code == "<DT>") {
      show(ShownCharacter::Kind::kTime, ' ');
    } else if (code.startsWith("<G") && code.endsWith('>') && code.size() == 4) {
      show(ShownCharacter::Kind::kSymbol, code[2]);
    } else if (code.startsWith("<C") && code.endsWith('>') && code.size() == 4) {
      look.colour = code[2];
    } else if (code.startsWith("<S") && code.endsWith('>') && code.size() == 4) {
      const qsizetype number = QByteArrayView("ABCDEFGH").indexOf(code[2]);
      if (number >= 0) {
        look.size = "ABCDABCD"[number];
        look.blinking = number > 3;
      }
    } else {
      at -= 3;
      show(ShownCharacter::Kind::kCharacter, code[0]);
    }
  }
  return shown;
}
