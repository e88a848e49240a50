# shellcheck shell=bash
# Sourced by the tests of the installed package for plug-ins, after installation.bash.
tree=$1

# Makes the project of a small plug-in in a folder. It answers every action by sending the host one folder.
make_project() {
  mkdir "$1" "$1/locale" "$1/locale/de" "$1/locale/de/LC_MESSAGES"
  cat >"$1/CMakeLists.txt" <<'END'
cmake_minimum_required(VERSION 3.25)
project(Greeter VERSION 1.2 LANGUAGES CXX)
find_package(DeskloomSDK 0.1 REQUIRED)
deskloom_plugin(
  greeter
  IDENTIFIER com.example.Greeter
  NAME "Greeter \\ Co; Ltd"
  VERSION ${PROJECT_VERSION}
  ICON hand.svg
  COMMENT "Says hello" de "Sagt hallo"
  SOURCES main.cpp
  LOCALE locale
  FEED_URL https://example.com/appcast.xml)
END
  cat >"$1/main.cpp" <<'END'
#include <DeskloomSDK/Resources/Command.h>
#include <DeskloomSDK/DeskloomPlugin.h>
#include <Platform/Application.h>
#include <Platform/Services.h>

class Delegate : public Platform::ApplicationDelegate {
 public:
  Delegate() {
    plugin_.actionController.onRunCommand = [](const auto&) {
      using DeskloomSDK::Resource, DeskloomSDK::ResourceType;
      const Resource folder(ResourceType::folder, "Hello", Platform::URL::fileURL("/tmp"));
      (void)DeskloomSDK::Command({folder}).send();
      Platform::sharedApplication().terminate();
    };
    Platform::services().appleEvents.setEventHandler(
        Platform::internetEventClass, Platform::getURLEventID,
        [this](const auto& event, auto&) { plugin_.actionController.handleURLEvent(event); });
  }
  void applicationDidFinishLaunching(const Platform::Notification&) override {}

 private:
  DeskloomSDK::DeskloomPlugin plugin_{{}};
};

int main(int argumentCount, char** arguments) {
  return Platform::applicationMain(argumentCount, arguments, [] { return std::make_unique<Delegate>(); });
}
END
  cp "$tree/packaging/com.quillary.Gleanery.svg" "$1/hand.svg"
  printf '%s\n' 'msgid ""' 'msgstr "Content-Type: text/plain; charset=UTF-8\n"' '' 'msgid "OK"' 'msgstr "Na gut"' |
    msgfmt --output-file="$1/locale/de/LC_MESSAGES/com.example.Greeter.mo" -
}

# The options that this build's archives are compiled with, which their users need too.
compiler_options() {
  # shellcheck disable=SC2154 # it is in installation.bash
  sed -n 's/^CMAKE_CXX_FLAGS:STRING=//p' "$build/CMakeCache.txt"
}

# Configures the project in the first folder into the second, with further options of cmake.
configure() {
  cmake -G Ninja -S "$1" -B "$2" -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS="$(compiler_options)" "${@:3}"
}
