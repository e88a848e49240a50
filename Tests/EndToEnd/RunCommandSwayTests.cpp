#include "Tests/EndToEnd/RunCommandOnWayland.h"
