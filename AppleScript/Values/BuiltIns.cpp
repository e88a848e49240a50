#include "AppleScript/Values/BuiltIns.h"

#include <array>
#include <numbers>

#include "AppleScript/Text/CaseFolding.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {

namespace {

struct ClassFinder {
  using Class = const ClassDescription&;

  Class operator()(std::monostate) const { return BuiltInClasses::classOfClasses; }
  Class operator()(bool) const { return BuiltInClasses::boolean; }
  Class operator()(std::int64_t) const { return BuiltInClasses::integer; }
  Class operator()(double) const { return BuiltInClasses::real; }
  Class operator()(const Text&) const { return BuiltInClasses::text; }
  Class operator()(const File&) const { return BuiltInClasses::alias; }
  Class operator()(const List&) const { return BuiltInClasses::list; }
  Class operator()(const Record&) const { return BuiltInClasses::record; }
  Class operator()(ClassName) const { return BuiltInClasses::classOfClasses; }
  Class operator()(Constant constant) const {
    const bool stands = constant == Constant::yes || constant == Constant::no || constant == Constant::ask;
    return stands ? BuiltInClasses::constant : BuiltInClasses::script;
  }
  Class operator()(const ObjectReference& reference) const {
    return reference.object == nullptr ? BuiltInClasses::application : reference.object->classDescription();
  }
  Class operator()(const ItemReference& reference) const { return classOf(dereferenced(reference)); }
};

}  // namespace

const ClassDescription& classOf(const Value& value) {
  return std::visit(ClassFinder(), value.storage());
}

bool isOfClass(const Value& value, const ClassDescription& description) {
  const ClassDescription& own = classOf(value);
  if (&description == &BuiltInClasses::item)
    return true;
  if (&description == &BuiltInClasses::number)
    return &own == &BuiltInClasses::integer || &own == &BuiltInClasses::real;
  return sameName(own.name, description.name);
}

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
