#pragma once

#include "Tests/Support/FakeService.h"

namespace TestSupport {

/// Stands in for the host on the session bus: com.quillary.Deskloom with its scripting interface and the one by which
/// it receives URLs, which answer as the test says.
class FakeDeskloomHost : public FakeService {
 public:
  /// Appears on the bus; throws where that fails.
  FakeDeskloomHost();
};

}  // namespace TestSupport
