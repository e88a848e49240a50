#pragma once

#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "AppleScript/Text/Text.h"
#include "AppleScript/Values/Containers.h"
#include "AppleScript/Values/Dictionary.h"

namespace AppleScript {

/// A file object or alias: a file by its POSIX path. Holds the path as it was given; nothing looks at the file itself.
class File {
 public:
  explicit File(std::string path) : path_(std::move(path)) {}
  explicit File(Text path) : path_(std::move(path)) {}

  /// The path in UTF-8, as `POSIX path of` yields it.
  [[nodiscard]] const Text& path() const { return path_; }

 private:
  Text path_;
};

class Application;

/// The name of a class as a value: what `class of x` yields. Lives as long as the program.
struct ClassName {
  const ClassDescription* description;
};

/// A word of the language that stands for itself, or for the script and what surrounds it.
enum class Constant : std::uint8_t { me, currentApplication, appleScript, yes, no, ask };

/// An object of an application, or the application itself where `object` is empty.
struct ObjectReference {
  ObjectPointer object;
  /// The application it belongs to; null where that is not known.
  Application* application = nullptr;
};

/// A reference to an item of a list, as the variable of a `repeat with … in` loop holds it. Yields what the list holds
/// there when it is read.
struct ItemReference {
  List list;
  std::size_t index = 0;
};

/// A value of the language; as good as free to copy, since texts, lists and records are shared. Values that a run of a
/// script made belong to one thread at a time.
class Value {
 public:
  using Storage = std::variant<std::monostate, bool, std::int64_t, double, Text, File, List, Record, ClassName,
                               Constant, ObjectReference, ItemReference>;

  /// `missing value`.
  Value() = default;
  Value(bool value) : storage_(value) {}
  template <std::integral Integer>
    requires(!std::same_as<Integer, bool>)
  Value(Integer value) : storage_(static_cast<std::int64_t>(value)) {}
  Value(double value) : storage_(value) {}
  Value(Text value) : storage_(std::move(value)) {}
  Value(std::string value) : storage_(Text(std::move(value))) {}
  Value(std::string_view value) : storage_(Text(value)) {}
  Value(const char* value) : storage_(Text(value)) {}
  Value(File value) : storage_(std::move(value)) {}
  Value(List value) : storage_(std::move(value)) {}
  Value(Record value) : storage_(std::move(value)) {}
  Value(ClassName value) : storage_(value) {}
  Value(Constant value) : storage_(value) {}
  Value(ObjectReference value) : storage_(std::move(value)) {}
  Value(ObjectPointer object) : storage_(ObjectReference{std::move(object)}) {}
  Value(ItemReference value) : storage_(std::move(value)) {}

  [[nodiscard]] bool isMissing() const { return is<std::monostate>(); }
  template <typename T>
  [[nodiscard]] bool is() const {
    return std::holds_alternative<T>(storage_);
  }
  /// The value as a `T`, null where it is of another kind; nothing is coerced.
  template <typename T>
  [[nodiscard]] const T* getIf() const {
    return std::get_if<T>(&storage_);
  }
  [[nodiscard]] const Storage& storage() const { return storage_; }

  /// The value coerced to text (NSAppleEventDescriptor's stringValue): a text itself, numbers and booleans as the
  /// language writes them, a file's path, a list's items one behind the other. None where that cannot be: `missing
  /// value`, records, objects of applications, and lists that hold one of these.
  [[nodiscard]] std::optional<std::string> stringValue() const;

 private:
  Storage storage_;
};

static_assert(sizeof(Value) <= 32);

/// What `value` refers to: the item itself for a reference to an item of a list, any other value as it is. Throws -1728
/// where the list has no such item any more, -2706 where references lead on without end. Valid until the list changes.
[[nodiscard]] const Value& dereferenced(const Value& value);
[[nodiscard]] const Value& dereferenced(const ItemReference& reference);

}  // namespace AppleScript
