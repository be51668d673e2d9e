// What the tests of the configuration's working copy share.
#pragma once

#include <QByteArray>
#include <QString>

#include "config/configuration_draft.h"
#include "support/text.h"

inline Brivon1::Configuration Read(const QByteArray& ini) {
  return Brivon1::ReadConfiguration(Brivon1::IniFile(ini));
}

inline Brivon1::PanelBoxes Boxes(const char* id, const char* rows, const char* columns,
                                 const char* address = "10.0.0.5", const char* port = "") {
  Brivon1::PanelBoxes boxes;
  boxes.id = Text(id);
  boxes.rows = Text(rows);
  boxes.columns = Text(columns);
  boxes.address = Text(address);
  boxes.port = Text(port);
  return boxes;
}

// What `draft` makes of a file.
inline QByteArray Applied(const Brivon1::ConfigurationDraft& draft, const QByteArray& ini) {
  Brivon1::IniFile file(ini);
  draft.Apply(file);
  return file.Content();
}
