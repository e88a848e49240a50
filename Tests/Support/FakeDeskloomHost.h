#pragma once

#include "Tests/Support/FakeService.h"

namespace TestSupport {

/// A fake host on the session bus: com.quillary.Deskloom with its scripting interface and the one that receives URLs. A
/// test sets the answers.
class FakeDeskloomHost : public FakeService {
 public:
  /// Takes the name on the bus. Throws if that fails.
  FakeDeskloomHost();
};

}  // namespace TestSupport
