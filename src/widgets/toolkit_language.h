// The toolkit's own texts: what stands in file dialogs, on the buttons of message boxes, in the
// menus of boxes, and the names of keys.
#pragma once

class QObject;

/// Takes them from the toolkit's translations into the language of the key "Locale" in section
/// "Language" of the language file ("de", "pt_BR"), or into the system's where the file has no such
/// key, for as long as `owner` lives. They stay English where the toolkit has no such translation.
/// Called only with the language flag.
void UseToolkitLanguage(QObject* owner);
