// The configuration as it is being edited: a working copy of the store that becomes the content of
// "brivon.ini" when it is saved. What may be put into it is decided here.
#pragma once

#include <optional>

#include <QByteArray>
#include <QString>

#include "base/file_lock.h"
#include "base/files.h"
#include "store/configuration_store.h"
#include "store/ini_file.h"

namespace Brivon1 {

inline constexpr int kHighestPanelId = kPanelIds - 1;
inline constexpr int kMostColumns = 3000;

/// The address of a panel that has none.
inline constexpr QLatin1String kNoAddress("0.0.0.0");

/// What the boxes for one panel hold.
struct PanelBoxes {
  QString id;
  QString rows;
  QString columns;
  qint16 colour_type = kMono;
  QString address = kNoAddress;
  QString port;

  bool operator==(const PanelBoxes&) const = default;
};

/// How an attempt to add a panel ended.
enum class AddResult { kAdded, kInvalidAddress, kInvalidInput };

/// The IP address that `text` is, when it is four numbers from 0 to 254 with "." between them. It
/// has no leading zeros, which the system's name service would take for octal numbers.
std::optional<QString> IpAddress(const QString& text);

/// Whether `address` is the one of a panel that has none.
bool IsNoAddress(const QString& address);

/// Why boxes with an IP address are no panel, in the operator's language; empty where they are one.
QString InputRemedy(const PanelBoxes& boxes);

/// Why `text` is no IP address, in the operator's language.
QString AddressRemedy(const QString& text);

/// Why "brivon.ini" was not saved, and what to do before `button` is pressed once more.
QString ConfigurationRemedy(SaveResult result, const QString& reason, const QString& button);

/// Whether a panel with so many dot columns has more digits than the store reads back.
bool IsReadBackShort(const QString& columns);

/// The value of a panel in section "Dimension Config": `16x128,Tri,192.168.0.20:80`; two fields
/// where the address is no more than the colour word.
QByteArray PanelValue(const PanelEntry& entry);

class ConfigurationDraft {
 public:
  /// Starts as a copy of `store`.
  explicit ConfigurationDraft(const Configuration& store) : loaded_(store), values_(store) {}

  const Configuration& Values() const { return values_; }

  void ChooseMode(SendMode mode);
  void ChooseBaudRate(int baud_rate) { values_.baud_rate = baud_rate; }
  void ChoosePort(qint16 port) { values_.com_port = port; }

  /// Puts a panel into the slot of its ID, over the one that is there. The port is 80 where its box
  /// is empty. Nothing changes unless every box holds what it may, and the value in the file would
  /// be short enough to be read whole.
  AddResult Add(const PanelBoxes& boxes);

  /// Whether `boxes` hold no more than what the draft has: the panel of their ID as it is, or what
  /// the boxes hold before anything is entered.
  bool Holds(const PanelBoxes& boxes) const;

  /// Clears the slot of a panel and returns the configured ID next to it: the one above, else the
  /// one below.
  std::optional<int> Remove(int id);

  /// The boxes for the panel in a slot, ready to be changed. A number that Add() would not take is
  /// left empty; so is the address of an entry that has none.
  PanelBoxes Boxes(int id) const;

  /// Changes in a file what differs from the working copy: the panels in ascending order, then the
  /// baud rate, the port and the send mode. A key that says the same already stays as it is
  /// written; the key of a removed panel is deleted. Without a send mode, that key stays.
  void Apply(IniFile& file) const;

  /// Applies the working copy to "brivon.ini" as it is at this moment, and reloads the store. What
  /// another program has written since the copy was made stays where the copy was not changed; no
  /// program writes meanwhile that takes the file's lock, too. One that holds it longer than `wait`
  /// waits is kLocked. A file that cannot be read is not replaced, nor is one replaced by what
  /// would be too large to be read: that is kInvalidPath. `reason` as SaveWholeFile() takes it.
  SaveResult Save(QString* reason = nullptr, const LockWait& wait = SleepBetweenTries()) const;

 private:
  /// The same changes, of what `file` says in place of what this copy was made of. A setting that
  /// `file` lacks stays as it is here: a default in its place would be nobody's choice.
  ConfigurationDraft ChangesOf(const IniFile& file) const;

  Configuration loaded_;
  Configuration values_;
};

}  // namespace Brivon1
