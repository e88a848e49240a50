#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "DesktopSupport/Bus/BusObjects.h"

namespace {

using DesktopSupport::BusInterface;
using DesktopSupport::BusMessage;
using DesktopSupport::BusObjects;
using DesktopSupport::owned;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const char* const own = "com.example.Own";
constexpr auto invalidArguments = DesktopSupport::BusErrorName::invalidArguments;
constexpr auto unknownMethod = DesktopSupport::BusErrorName::unknownMethod;

class BusObjectsTest : public testing::Test {
 protected:
  BusObjectsTest() {
    const char* const description = R"(
      <node>
        <interface name="com.example.Own">
          <method name="Open">
            <arg type="as" direction="in"/>
            <arg type="b" direction="out"/>
            <arg type="a{sv}"/>
          </method>
          <method name="Close"/>
        </interface>
      </node>)";
    objects_.add("/com/example", BusInterface::describedBy(description),
                 [this](const BusMessage& call) { taken_.push_back(call.member); });
  }

  /// The arguments or the name of the error that it is answered with at once; "taken" if the object takes the call.
  std::string call(const std::string& path, const std::string& interface, const std::string& method,
                   const std::string& arguments = "()") {
    auto answer = objects_.take({.serial = 5,
                                 .path = path,
                                 .interface = interface,
                                 .member = method,
                                 .sender = ":1.9",
                                 .arguments = owned(g_variant_new_parsed(arguments.c_str()))});
    if (!answer)
      return "taken";
    EXPECT_EQ(answer->answeredSerial, 5U);
    EXPECT_EQ(answer->destination, ":1.9");
    if (!answer->errorName.empty() || !answer->arguments)
      return answer->errorName;
    return DesktopSupport::CharsHandle(g_variant_print(answer->arguments.get(), FALSE)).get();
  }

  BusObjects objects_;
  std::vector<std::string> taken_;
};

TEST_F(BusObjectsTest, TakeCallsOfTheirMethods) {
  EXPECT_EQ(call("/com/example", own, "Open", "(['a'], {'b': <1>})"), "taken");
  EXPECT_EQ(call("/com/example", own, "Close"), "taken");
  EXPECT_EQ(call("/com/example", "", "Close"), "taken");
  EXPECT_THAT(taken_, ElementsAre("Open", "Close", "Close"));
}

TEST_F(BusObjectsTest, RefuseOtherCalls) {
  EXPECT_EQ(call("/com/example", own, "Open", "(['a'],)"), invalidArguments);
  EXPECT_EQ(call("/com/example", own, "Close", "(1,)"), invalidArguments);
  EXPECT_EQ(call("/com/example", own, "Other"), unknownMethod);
  EXPECT_EQ(call("/com/example", "com.example.Other", "Close"), unknownMethod);
  EXPECT_EQ(call("/com/example", "", "Other"), unknownMethod);
  EXPECT_EQ(call("/com", own, "Close"), unknownMethod);
  EXPECT_THAT(taken_, IsEmpty());
}

TEST_F(BusObjectsTest, SayThatTheyAreThere) {
  for (const char* path : {"/", "/com/example", "/no/object"}) {
    EXPECT_EQ(call(path, "org.freedesktop.DBus.Peer", "Ping"), "");
    EXPECT_THAT(call(path, "org.freedesktop.DBus.Peer", "GetMachineId"), HasSubstr("'"));
  }
  EXPECT_EQ(call("/", "org.freedesktop.DBus.Peer", "Ping", "(1,)"), invalidArguments);
  EXPECT_EQ(call("/", "org.freedesktop.DBus.Peer", "Other"), unknownMethod);
}

TEST_F(BusObjectsTest, DescribeThemselves) {
  const std::string introspectable = "org.freedesktop.DBus.Introspectable";
  EXPECT_THAT(call("/", introspectable, "Introspect"), HasSubstr("<node><node name=\"com\"/></node>"));
  EXPECT_THAT(call("/com", introspectable, "Introspect"), HasSubstr("<node><node name=\"example\"/></node>"));
  EXPECT_THAT(call("/com/exam", introspectable, "Introspect"), HasSubstr("<node></node>"));
  EXPECT_THAT(call("/com/example", introspectable, "Introspect"),
              testing::AllOf(HasSubstr(own), HasSubstr("<method name=\"Open\">"), HasSubstr("DBus.Properties")));
}

TEST_F(BusObjectsTest, HaveNoProperties) {
  const std::string properties = "org.freedesktop.DBus.Properties";
  EXPECT_EQ(call("/com/example", properties, "GetAll", "('com.example.Own',)"), "({},)");
  EXPECT_EQ(call("/com/example", properties, "GetAll", "('com.example.Other',)"), invalidArguments);
  EXPECT_EQ(call("/com/example", properties, "Get", "('com.example.Own', 'Size')"), invalidArguments);
  EXPECT_EQ(call("/com/example", properties, "Set", "('com.example.Own', 'Size', <1>)"), invalidArguments);
  EXPECT_EQ(call("/com/example", properties, "Get", "(1,)"), invalidArguments);
  EXPECT_EQ(call("/com/example", properties, "Other"), unknownMethod);
  EXPECT_EQ(call("/com", properties, "GetAll", "('com.example.Own',)"), unknownMethod);
}

TEST_F(BusObjectsTest, MayHaveSeveralInterfaces) {
  objects_.add(
      "/com/example",
      BusInterface::describedBy("<node><interface name='com.example.Second'><method name='More'/></interface></node>"),
      [this](const BusMessage& call) { taken_.push_back(call.member); });
  EXPECT_EQ(call("/com/example", "com.example.Second", "More"), "taken");
  EXPECT_EQ(call("/com/example", own, "Close"), "taken");
  objects_.remove("/com/example", own);
  EXPECT_EQ(call("/com/example", own, "Close"), unknownMethod);
  EXPECT_EQ(call("/com/example", "com.example.Second", "More"), "taken");
  objects_.remove("/com/example", "com.example.Second");
  EXPECT_EQ(call("/com/example", "com.example.Second", "More"), unknownMethod);
}

}  // namespace
