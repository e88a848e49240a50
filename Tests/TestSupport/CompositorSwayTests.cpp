#include "Tests/TestSupport/CompositorContract.h"
