#include "AppleScript/Operators/Comparison.h"

#include <algorithm>
#include <string>

#include "AppleScript/Text/CaseFolding.h"
#include "AppleScript/Values/Coercions.h"
#include "AppleScript/Values/Dictionary.h"
#include "AppleScript/Values/Failure.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {

namespace {

class Equality {
 public:
  bool holds(const Value& left, const Value& right);
  /// Whether `whole` has all fields of `part`.
  bool holdsForFields(const Record& whole, const Record& part);

 private:
  bool ofLists(const List& left, const List& right);

  std::size_t depth_ = 0;
};

bool isNumber(const Value& value) {
  return value.is<std::int64_t>() || value.is<double>();
}

double asReal(const Value& number) {
  const auto* integer = number.getIf<std::int64_t>();
  return integer != nullptr ? static_cast<double>(*integer) : *number.getIf<double>();
}

std::partial_ordering orderOfNumbers(const Value& left, const Value& right) {
  if (left.is<std::int64_t>() && right.is<std::int64_t>())
    return *left.getIf<std::int64_t>() <=> *right.getIf<std::int64_t>();
  return asReal(left) <=> asReal(right);
}

bool areEqualSimple(const Text& left, const Text& right) {
  return compareIgnoringCase(left.view(), right.view()) == std::strong_ordering::equal;
}

bool areEqualSimple(const File& left, const File& right) {
  return left.path().view() == right.path().view();
}

bool areEqualSimple(ClassName left, ClassName right) {
  return sameName(left.description->name, right.description->name);
}

bool areEqualSimple(const ObjectReference& left, const ObjectReference& right) {
  return left.object == right.object && (left.object != nullptr || left.application == right.application);
}

bool areEqualSimple(const ItemReference& left, const ItemReference& right) {
  return left.list.isSameAs(right.list) && left.index == right.index;
}

bool areEqualSimple(bool left, bool right) {
  return left == right;
}
bool areEqualSimple(Constant left, Constant right) {
  return left == right;
}

template <typename T>
bool areEqualAs(const Value& left, const Value& right) {
  return areEqualSimple(*left.getIf<T>(), *right.getIf<T>());
}

bool areEqualOfOneKind(const Value& left, const Value& right) {
  return left.isMissing() || (left.is<bool>() && areEqualAs<bool>(left, right)) ||
         (left.is<Text>() && areEqualAs<Text>(left, right)) || (left.is<File>() && areEqualAs<File>(left, right)) ||
         (left.is<ClassName>() && areEqualAs<ClassName>(left, right)) ||
         (left.is<Constant>() && areEqualAs<Constant>(left, right)) ||
         (left.is<ObjectReference>() && areEqualAs<ObjectReference>(left, right)) ||
         (left.is<ItemReference>() && areEqualAs<ItemReference>(left, right));
}

bool Equality::holds(const Value& left, const Value& right) {
  if (isNumber(left) && isNumber(right))
    return orderOfNumbers(left, right) == std::partial_ordering::equivalent;
  if (left.storage().index() != right.storage().index())
    return false;
  if (const auto* list = left.getIf<List>())
    return ofLists(*list, *right.getIf<List>());
  if (const auto* record = left.getIf<Record>()) {
    const auto& other = *right.getIf<Record>();
    return record->isSameAs(other) || (record->size() == other.size() && holdsForFields(*record, other));
  }
  return areEqualOfOneKind(left, right);
}

bool Equality::ofLists(const List& left, const List& right) {
  if (left.isSameAs(right))
    return true;
  const Descent descent(depth_);
  return std::ranges::equal(left.items(), right.items(),
                            [this](const Value& a, const Value& b) { return holds(a, b); });
}

bool Equality::holdsForFields(const Record& whole, const Record& part) {
  const Descent descent(depth_);
  for (std::size_t i = 0; i < part.size(); ++i) {
    const auto value = whole.find(part.label(i));
    if (!value || !holds(*value, part.value(i)))
      return false;
  }
  return true;
}

/// Both operands of a containment, seen as texts or as lists.
struct Sides {
  Value whole;
  Value part;

  Sides(const Value& left, const Value& right) : whole(dereferenced(left)), part(dereferenced(right)) {
    if (whole.is<Text>()) {
      part = toText(part);
    } else {
      whole = toList(whole);
      part = toList(part);
    }
  }
};

bool sameItem(const Value& left, const Value& right) {
  return areEqual(dereferenced(left), dereferenced(right));
}

bool matchesAt(std::span<const Value> whole, std::size_t offset, std::span<const Value> part) {
  return offset <= whole.size() && part.size() <= whole.size() - offset &&
         std::ranges::equal(whole.subspan(offset, part.size()), part, sameItem);
}

}  // namespace

bool areEqual(const Value& left, const Value& right) {
  return Equality().holds(left, right);
}

std::partial_ordering order(const Value& left, const Value& right) {
  const Value& first = dereferenced(left);
  const Value& second = dereferenced(right);
  if (const auto* text = first.getIf<Text>())
    return compareIgnoringCase(text->view(), toText(second).view());
  return orderOfNumbers(toNumber(first), toNumber(second));
}

bool contains(const Value& whole, const Value& part) {
  const Value& outer = dereferenced(whole);
  const Value& inner = dereferenced(part);
  if (outer.is<Record>() && inner.is<Record>())
    return Equality().holdsForFields(*outer.getIf<Record>(), *inner.getIf<Record>());
  const Sides sides(outer, inner);
  if (const auto* text = sides.whole.getIf<Text>()) {
    const std::string folded = foldCase(text->view());
    return folded.find(foldCase(sides.part.getIf<Text>()->view())) != std::string::npos;
  }
  const auto items = sides.whole.getIf<List>()->items();
  return std::ranges::search(items, sides.part.getIf<List>()->items(), sameItem).begin() != items.end() ||
         sides.part.getIf<List>()->size() == 0;
}

bool startsWith(const Value& whole, const Value& part) {
  const Sides sides(whole, part);
  if (const auto* text = sides.whole.getIf<Text>())
    return foldCase(text->view()).starts_with(foldCase(sides.part.getIf<Text>()->view()));
  return matchesAt(sides.whole.getIf<List>()->items(), 0, sides.part.getIf<List>()->items());
}

bool endsWith(const Value& whole, const Value& part) {
  const Sides sides(whole, part);
  if (const auto* text = sides.whole.getIf<Text>())
    return foldCase(text->view()).ends_with(foldCase(sides.part.getIf<Text>()->view()));
  const auto items = sides.whole.getIf<List>()->items();
  const auto ending = sides.part.getIf<List>()->items();
  return matchesAt(items, items.size() - std::min(items.size(), ending.size()), ending);
}

}  // namespace AppleScript
