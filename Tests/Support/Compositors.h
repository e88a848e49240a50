#pragma once

#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include <glib.h>

#include "DesktopSupport/System/GLibHandles.h"
#include "Tests/Support/Compositor.h"

namespace TestSupport {

[[nodiscard]] std::unique_ptr<Compositor> makeSway();
[[nodiscard]] std::unique_ptr<Compositor> makeKWin();
[[nodiscard]] std::unique_ptr<Compositor> makeGNOMEShell();

/// Calls a method of a compositor on the session bus and returns the answer. Throws if there is none.
DesktopSupport::VariantHandle callCompositor(const char* busName, const std::string& path, const char* interface,
                                             const char* method, GVariant* arguments, const char* answerType);

/// The windows in a list of objects whose members are named as those of CompositorWindow.
std::vector<CompositorWindow> windowsFrom(const nlohmann::json& list);

}  // namespace TestSupport
