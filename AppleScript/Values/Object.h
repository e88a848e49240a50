#pragma once

#include <memory>

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

}  // namespace AppleScript
