#include "Tests/ScriptableApps/FileManagersOnWayland.h"
