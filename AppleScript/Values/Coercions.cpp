#include "AppleScript/Values/Coercions.h"

#include <cmath>
#include <limits>
#include <utility>
#include <vector>

#include "AppleScript/Text/CaseFolding.h"
#include "AppleScript/Values/BuiltIns.h"
#include "AppleScript/Values/Failure.h"
#include "AppleScript/Values/NumberText.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {

namespace {

/// Puts texts together; the one place that knows the text form of each kind of value.
class TextJoiner {
 public:
  explicit TextJoiner(std::string_view delimiter) : delimiter_(delimiter) {}

  Text text(const Value& value) {
    if (const auto* text = value.getIf<Text>())
      return *text;
    add(value);
    return Text(std::move(joined_));
  }

 private:
  void add(const Value& value);
  void add(const List& list);

  std::string_view delimiter_;
  std::string joined_;
  std::size_t depth_ = 0;
};

void TextJoiner::add(const Value& value) {
  if (const auto* text = value.getIf<Text>())
    joined_ += text->view();
  else if (const auto* integer = value.getIf<std::int64_t>())
    joined_ += numberText(*integer);
  else if (const auto* real = value.getIf<double>())
    joined_ += numberText(*real);
  else if (const auto* boolean = value.getIf<bool>())
    joined_ += *boolean ? "true" : "false";
  else if (const auto* file = value.getIf<File>())
    joined_ += file->path().view();
  else if (const auto* list = value.getIf<List>())
    add(*list);
  else if (const auto* name = value.getIf<ClassName>())
    joined_ += name->description->name;
  else if (const auto* constant = value.getIf<Constant>())
    joined_ += nameOf(*constant);
  else if (value.isMissing())
    joined_ += "missing value";
  else if (value.is<ItemReference>())
    add(dereferenced(value));
  else
    failToCoerce(value, BuiltInClasses::text.name);
}

void TextJoiner::add(const List& list) {
  const Descent descent(depth_);
  bool first = true;
  for (const Value& item : list.items()) {
    joined_ += std::exchange(first, false) ? std::string_view() : delimiter_;
    add(item);
  }
}

/// The item of a list of one, at any depth; other values as they are.
const Value& onlyItem(const Value& value) {
  const Value* current = &dereferenced(value);
  std::size_t depth = 0;
  while (const auto* list = current->getIf<List>()) {
    if (list->size() != 1)
      break;
    if (++depth > maximumNesting)
      failOfDepth();
    current = &dereferenced(list->at(0));
  }
  return *current;
}

Value numberOr(const Value& value, const ClassDescription& target) {
  const Value& one = onlyItem(value);
  if (one.is<std::int64_t>() || one.is<double>())
    return one;
  if (const auto* boolean = one.getIf<bool>())
    return *boolean ? 1 : 0;
  const auto* text = one.getIf<Text>();
  const auto number = text == nullptr ? std::nullopt : numberFromText(text->view());
  if (!number)
    failToCoerce(value, target.name);
  return *number;
}

List valuesOf(const Record& record) {
  std::vector<Value> values;
  for (std::size_t i = 0; i < record.size(); ++i)
    values.push_back(record.value(i));
  return List(std::move(values));
}

}  // namespace

Text toText(const Value& value, std::string_view delimiter) {
  return TextJoiner(delimiter).text(dereferenced(value));
}

Value toNumber(const Value& value) {
  return numberOr(value, BuiltInClasses::number);
}

double toReal(const Value& value) {
  const Value number = numberOr(value, BuiltInClasses::real);
  const auto* integer = number.getIf<std::int64_t>();
  return integer != nullptr ? static_cast<double>(*integer) : *number.getIf<double>();
}

std::int64_t toInteger(const Value& value) {
  const Value number = numberOr(value, BuiltInClasses::integer);
  if (const auto* integer = number.getIf<std::int64_t>())
    return *integer;
  const double rounded = std::nearbyint(*number.getIf<double>());
  // The bound itself is a power of two, so it is exact as a real; the greatest integer is not.
  constexpr double upperBound = -static_cast<double>(std::numeric_limits<std::int64_t>::min());
  if (!(rounded >= -upperBound && rounded < upperBound))
    failToCoerce(value, BuiltInClasses::integer.name);
  return static_cast<std::int64_t>(rounded);
}

bool toBoolean(const Value& value) {
  const Value& one = onlyItem(value);
  if (const auto* boolean = one.getIf<bool>())
    return *boolean;
  if (const auto* integer = one.getIf<std::int64_t>(); integer != nullptr && (*integer == 0 || *integer == 1))
    return *integer == 1;
  const auto* text = one.getIf<Text>();
  const bool isTrue = text != nullptr && sameName(text->view(), "true");
  if (!isTrue && (text == nullptr || !sameName(text->view(), "false")))
    failToCoerce(value, BuiltInClasses::boolean.name);
  return isTrue;
}

List toList(const Value& value) {
  const Value& whole = dereferenced(value);
  if (const auto* list = whole.getIf<List>())
    return *list;
  const auto* record = whole.getIf<Record>();
  return record != nullptr ? valuesOf(*record) : List{whole};
}

File toFile(const Value& value) {
  const Value& one = onlyItem(value);
  if (const auto* file = one.getIf<File>())
    return *file;
  const auto* path = one.getIf<Text>();
  if (path == nullptr)
    failToCoerce(value, BuiltInClasses::alias.name);
  return File(*path);
}

Value coerce(const Value& value, const ClassDescription& target, std::string_view delimiter) {
  const Value& whole = dereferenced(value);
  const auto is = [&target](const ClassDescription& description) { return sameName(target.name, description.name); };
  if (is(BuiltInClasses::text))
    return toText(whole, delimiter);
  if (is(BuiltInClasses::number))
    return toNumber(whole);
  if (is(BuiltInClasses::integer))
    return toInteger(whole);
  if (is(BuiltInClasses::real))
    return toReal(whole);
  if (is(BuiltInClasses::boolean))
    return toBoolean(whole);
  if (is(BuiltInClasses::list))
    return toList(whole);
  if (is(BuiltInClasses::file) || is(BuiltInClasses::alias))
    return toFile(whole);
  const Value& one = onlyItem(whole);
  if (!isOfClass(one, target))
    failToCoerce(whole, target.name);
  return one;
}

}  // namespace AppleScript
