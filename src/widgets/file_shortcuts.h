// The usual keys of the buttons with which the three editors start, open, save and send their
// files.
#pragma once

class QPushButton;

struct FileButtons {
  QPushButton* new_file;
  QPushButton* open;
  QPushButton* save;
  QPushButton* save_as;
  QPushButton* send;
};

/// Binds the keys to the buttons, which stand in their window already; their tool tips show them.
void AddFileShortcuts(const FileButtons& buttons);
