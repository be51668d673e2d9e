// The usual keys of the buttons with which the three editors start, open and save their files.
#pragma once

class QPushButton;

struct FileButtons {
  QPushButton* new_file;
  QPushButton* open;
  QPushButton* save;
  QPushButton* save_as;
};

/// Binds the keys to the buttons, which stand in their window already; their tool tips show them.
void AddFileShortcuts(const FileButtons& buttons);
