#pragma once

#include <string>

namespace ScriptableApps {

/// What the file manager calls the user's home folder, in the user's language: "Home" where that cannot be told. One
/// line of UTF-8.
std::string homeFolderName();

}  // namespace ScriptableApps
