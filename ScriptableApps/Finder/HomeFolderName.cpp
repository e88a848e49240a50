#include "ScriptableApps/Finder/HomeFolderName.h"

#include <clocale>

#include <libintl.h>

#include "DesktopSupport/System/DisplayableText.h"

namespace ScriptableApps {

namespace {

// Has this thread speak the user's language for as long as it lives; the rest of the process goes on in its own.
class UsersLanguage {
 public:
  UsersLanguage() {
    if (locale_ != nullptr)
      before_ = uselocale(locale_);
  }
  UsersLanguage(const UsersLanguage&) = delete;
  UsersLanguage& operator=(const UsersLanguage&) = delete;
  ~UsersLanguage() {
    if (locale_ == nullptr)
      return;
    uselocale(before_);
    freelocale(locale_);
  }

 private:
  locale_t locale_ = newlocale(LC_CTYPE_MASK | LC_MESSAGES_MASK, "", nullptr);
  locale_t before_ = nullptr;
};

}  // namespace

std::string homeFolderName() {
  constexpr const char* catalogue = "nautilus";
  const UsersLanguage language;
  bind_textdomain_codeset(catalogue, "UTF-8");
  return DesktopSupport::displayableName(dgettext(catalogue, "Home"));
}

}  // namespace ScriptableApps
