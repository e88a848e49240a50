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

/// A file object or an alias: a POSIX path. The file need not exist.
class File {
 public:
  explicit File(std::string path) : path_(std::move(path)) {}
  explicit File(Text path) : path_(std::move(path)) {}

  /// The path as it was given, in UTF-8.
  [[nodiscard]] const Text& path() const { return path_; }

 private:
  Text path_;
};

class Application;

/// A class as a value: the result of `class of x`. The description is never destroyed.
struct ClassName {
  const ClassDescription* description;
};

/// A word of the language that is a value of its own, or means the script and what it runs in.
enum class Constant : std::uint8_t { me, currentApplication, appleScript, yes, no, ask };

/// An object of an application, or the application itself if `object` is null.
struct ObjectReference {
  ObjectPointer object;
  /// The application it belongs to; null if that is not known.
  Application* application = nullptr;
};

/// A reference to an item of a list, as in the variable of a `repeat with … in` loop. Reading it yields the current
/// item.
struct ItemReference {
  List list;
  std::size_t index = 0;
};

/// A value of the language. Copies are cheap, since texts, lists and records are shared. The values of one run belong
/// to one thread at a time.
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
  /// The value as a `T`, or null if it is of another kind. Nothing is coerced.
  template <typename T>
  [[nodiscard]] const T* getIf() const {
    return std::get_if<T>(&storage_);
  }
  [[nodiscard]] const Storage& storage() const { return storage_; }

  /// The value coerced to text (NSAppleEventDescriptor's stringValue): a text itself, numbers and booleans as scripts
  /// write them, a file's path, a list's items without separators. `nullopt` for `missing value`, records, objects of
  /// applications, and lists that contain one of these.
  [[nodiscard]] std::optional<std::string> stringValue() const;

 private:
  Storage storage_;
};

static_assert(sizeof(Value) <= 32);

/// The item that `value` refers to if it is a reference to an item, otherwise `value` itself. Throws -1728 if the list
/// no longer has that item, -2706 for a cycle of references. Valid until the list changes.
[[nodiscard]] const Value& dereferenced(const Value& value);
[[nodiscard]] const Value& dereferenced(const ItemReference& reference);

}  // namespace AppleScript
