#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string_view>

#include "AppleScript/Values/ScriptError.h"

namespace AppleScript {

struct ClassDescription;

/// One thing that an application has open, as a script sees it: a node of a plain tree. Its class says by tables which
/// properties it has and which elements it holds. A node does not change once a script has seen it.
class Object {
 public:
  virtual ~Object() = default;

  /// The class of this object; lives as long as the program.
  [[nodiscard]] virtual const ClassDescription& classDescription() const = 0;
};

/// A node together with a share in the tree that owns it.
using ObjectPointer = std::shared_ptr<const Object>;

class Application;
class Arguments;
class Value;

/// A property of a class: its phrase in scripts ("background only") and how an object answers it.
struct PropertyDescription {
  std::string_view name;
  Result<Value> (*get)(const Object& object);
};

/// The elements of one class that an object holds, in the order in which scripts count them.
struct ElementsDescription {
  const ClassDescription* elementClass;
  std::size_t (*count)(const Object& container);
  /// The element at `index`, counted from 0 and below `count`; owned by the tree of its container.
  const Object& (*at)(const Object& container, std::size_t index);
};

/// A class of an application's objects: "process", in the plural "processes".
struct ClassDescription {
  std::string_view name;
  std::string_view plural;
  std::span<const PropertyDescription> properties;
  std::span<const ElementsDescription> elements = {};
};

/// Whether a command takes a value directly behind its name.
enum class DirectParameter { none, optional, required };

/// A labelled parameter of a command: `action "ID"`. All labelled parameters listed are required.
struct ParameterDescription {
  std::string_view label;
};

/// A command of an application: its phrase ("get path of plugin"), its parameters, and what carries it out.
struct CommandDescription {
  std::string_view name;
  DirectParameter direct = DirectParameter::none;
  std::span<const ParameterDescription> parameters = {};
  Result<Value> (*run)(Application& application, const Arguments& arguments) = nullptr;
};

/// What an application adds to the language inside its `tell` blocks. Phrases are one or more words, separated by one
/// space each; where several fit, the longest is meant.
struct Dictionary {
  /// The application object's own class, at the root of its tree.
  const ClassDescription* application;
  /// Every class that scripts can name.
  std::span<const ClassDescription* const> classes = {};
  std::span<const CommandDescription> commands = {};
};

}  // namespace AppleScript
