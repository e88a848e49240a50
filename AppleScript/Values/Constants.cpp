#include "AppleScript/Values/Constants.h"

#include <array>
#include <numbers>

namespace AppleScript {

std::span<const ConstantPhrase> constantPhrases() {
  static const std::array phrases{
      ConstantPhrase{"true", true},
      ConstantPhrase{"false", false},
      ConstantPhrase{"missing value", Value()},
      ConstantPhrase{"linefeed", "\n"},
      ConstantPhrase{"return", "\r"},
      ConstantPhrase{"tab", "\t"},
      ConstantPhrase{"space", " "},
      ConstantPhrase{"quote", "\""},
      ConstantPhrase{"pi", std::numbers::pi},
      ConstantPhrase{"me", Constant::me},
      ConstantPhrase{"current application", Constant::currentApplication},
      ConstantPhrase{"AppleScript", Constant::appleScript},
      ConstantPhrase{"yes", Constant::yes},
      ConstantPhrase{"no", Constant::no},
      ConstantPhrase{"ask", Constant::ask},
  };
  return phrases;
}

std::string_view nameOf(Constant constant) {
  switch (constant) {
    case Constant::me:
      return "«script»";
    case Constant::currentApplication:
      return "current application";
    case Constant::appleScript:
      return "AppleScript";
    case Constant::yes:
      return "yes";
    case Constant::no:
      return "no";
    case Constant::ask:
      return "ask";
  }
  return {};
}

}  // namespace AppleScript
