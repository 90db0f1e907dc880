// The folders in which the desktop keeps the user's documents and settings.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brenwick {

// The user's home: $HOME, or what the system knows of the user where that is missing.
std::string HomeFolder();

// $XDG_CONFIG_HOME, or ~/.config where that is missing or no absolute path.
std::string XdgConfigHome();

// The file of the settings store: brenwick/store.ini among the user's settings.
std::string DefaultStoreFile();

// $XDG_STATE_HOME, or ~/.local/state: for what a program remembers and no user edits.
std::string XdgStateHome();

// $XDG_DOCUMENTS_DIR, or what user-dirs.dirs says of it, or ~/Documents. It may not exist.
std::string XdgDocumentsFolder();

// The documents folder in the content of a user-dirs.dirs; nothing where it names none.
std::optional<std::string> DocumentsFolderIn(std::string_view user_dirs, const std::string& home);

}  // namespace brenwick
