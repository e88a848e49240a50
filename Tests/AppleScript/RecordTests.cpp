#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "AppleScript/Values/Dictionary.h"
#include "AppleScript/Values/Containers.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {
namespace {

struct Thing : Object {
  mutable int timesAsked = 0;

  [[nodiscard]] const ClassDescription& classDescription() const override;
};

Result<Value> name(const Object& object) {
  ++static_cast<const Thing&>(object).timesAsked;
  return "thing";
}

Result<Value> broken(const Object& /*object*/) {
  return std::unexpected(ScriptError{.message = "broken"});
}

const PropertyDescription thingProperties[] = {{"full name", name}, {"broken", broken}};
const ClassDescription thingClass{"thing", "things", thingProperties};

const ClassDescription& Thing::classDescription() const {
  return thingClass;
}

TEST(Record, FindsFieldsInAnyCase) {
  const Record record(std::make_shared<const std::vector<std::string>>(1, "Size"), {3});
  ASSERT_TRUE(record.find("sIZE"));
  EXPECT_EQ(record.find("size")->stringValue(), "3");
  EXPECT_FALSE(record.find("length"));
}

TEST(Record, SetsOnlyFieldsThatItHas) {
  Record record(std::make_shared<const std::vector<std::string>>(1, "size"), {3});
  EXPECT_TRUE(record.set("size", 4));
  EXPECT_FALSE(record.set("other", 5));
  EXPECT_EQ(record.size(), 1U);
  EXPECT_EQ(record.value(0).stringValue(), "4");
}

TEST(Record, AsksAnObjectOnlyForWhatIsNeeded) {
  const auto thing = std::make_shared<Thing>();
  const Record record{ObjectPointer(thing)};
  EXPECT_EQ(thing->timesAsked, 0);
  EXPECT_EQ(record.find("full name")->stringValue(), "thing");
  EXPECT_EQ(thing->timesAsked, 1);
}

TEST(Record, LeavesOutPropertiesThatFail) {
  const Record record{ObjectPointer(std::make_shared<Thing>())};
  EXPECT_FALSE(record.find("broken"));
  EXPECT_EQ(record.size(), 1U);
  EXPECT_EQ(record.label(0), "full name");
}

TEST(Record, OfAnObjectCanBeChangedWithoutTheObject) {
  const auto thing = std::make_shared<Thing>();
  Record record{ObjectPointer(thing)};
  const Record untouched{ObjectPointer(thing)};
  EXPECT_TRUE(record.set("full name", "other"));
  EXPECT_EQ(record.find("full name")->stringValue(), "other");
  EXPECT_EQ(untouched.find("full name")->stringValue(), "thing");
}

}  // namespace
}  // namespace AppleScript
