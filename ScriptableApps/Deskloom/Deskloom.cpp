#include "ScriptableApps/Deskloom/Deskloom.h"

#include "ScriptableApps/Deskloom/DeskloomCommands.h"

namespace ScriptableApps {

namespace {

class DeskloomObject : public AppleScript::Object {
 public:
  [[nodiscard]] const AppleScript::ClassDescription& classDescription() const override {
    return *deskloomDictionary().application;
  }
};

}  // namespace

std::string_view Deskloom::name() const {
  return "Deskloom";
}

const AppleScript::Dictionary& Deskloom::dictionary() const {
  return deskloomDictionary();
}

AppleScript::Result<AppleScript::ObjectPointer> Deskloom::open() {
  return std::make_shared<const DeskloomObject>();
}

}  // namespace ScriptableApps
