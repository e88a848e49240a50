#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string_view>

#include "AppleScript/Values/ScriptError.h"

namespace AppleScript {

struct ClassDescription;

/// Something that an application has open, as a script sees it: a node of a tree. The tables of its class list its
/// properties and elements. A node does not change after a script has seen it.
class Object {
 public:
  virtual ~Object() = default;

  /// The class of this object. It is never destroyed.
  [[nodiscard]] virtual const ClassDescription& classDescription() const = 0;
};

/// A node, with shared ownership of its tree.
using ObjectPointer = std::shared_ptr<const Object>;

class Application;
class Arguments;
class Value;

/// A property of a class: its phrase in scripts ("background only") and how to get it from an object.
struct PropertyDescription {
  std::string_view name;
  Result<Value> (*get)(const Object& object);
};

/// The elements of one class in an object, in the order in which scripts count them.
struct ElementsDescription {
  const ClassDescription* elementClass;
  std::size_t (*count)(const Object& container);
  /// The element at `index`, counted from 0 and below `count`. The container's tree owns it.
  const Object& (*at)(const Object& container, std::size_t index);
};

/// A class of objects: "process", in the plural "processes".
struct ClassDescription {
  std::string_view name;
  std::string_view plural;
  std::span<const PropertyDescription> properties;
  std::span<const ElementsDescription> elements = {};
};

/// Whether a command takes a value directly after its name.
enum class DirectParameter { none, optional, required };

/// A labelled parameter of a command: `action "ID"`. It is required.
struct ParameterDescription {
  std::string_view label;
};

/// A command of an application: its phrase ("get path of plugin"), its parameters and its implementation.
struct CommandDescription {
  std::string_view name;
  DirectParameter direct = DirectParameter::none;
  std::span<const ParameterDescription> parameters = {};
  Result<Value> (*run)(Application& application, const Arguments& arguments) = nullptr;
};

/// The terminology that applies inside an application's `tell` blocks. Phrases are words separated by single spaces. If
/// several match, the longest is meant.
struct Dictionary {
  /// The class of the application itself, the root of its tree.
  const ClassDescription* application;
  /// Every class that scripts can name.
  std::span<const ClassDescription* const> classes = {};
  std::span<const CommandDescription> commands = {};
};

}  // namespace AppleScript
