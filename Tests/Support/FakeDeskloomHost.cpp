#include "Tests/Support/FakeDeskloomHost.h"

namespace TestSupport {

namespace {

constexpr const char* interfaceDescription = R"(
<node>
  <interface name="com.quillary.Deskloom.Scripting">
    <method name="GetGlobalConfig"><arg type="s"/><arg type="b" direction="out"/><arg type="s" direction="out"/></method>
    <method name="SetGlobalConfig"><arg type="s"/><arg type="s"/></method>
    <method name="GetConfig"><arg type="s"/><arg type="b" direction="out"/><arg type="s" direction="out"/></method>
    <method name="SetConfig"><arg type="s"/><arg type="s"/></method>
    <method name="GetPluginFolderPath"><arg type="b" direction="out"/><arg type="s" direction="out"/></method>
    <method name="GetPathOfPlugin"><arg type="s"/><arg type="b" direction="out"/><arg type="s" direction="out"/></method>
    <method name="GetIsPluginInstalledAtPath"><arg type="s"/><arg type="b" direction="out"/></method>
    <method name="InstallPlugin"/>
  </interface>
  <interface name="org.freedesktop.Application">
    <method name="Open"><arg type="as"/><arg type="a{sv}"/></method>
  </interface>
</node>)";

}  // namespace

FakeDeskloomHost::FakeDeskloomHost()
    : FakeService("com.quillary.Deskloom", "/com/quillary/Deskloom", interfaceDescription) {}

}  // namespace TestSupport
