#include "AppleScript/Values/BuiltInClasses.h"

#include "AppleScript/Text/Names.h"
#include "AppleScript/Values/Dereference.h"

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

}  // namespace AppleScript
