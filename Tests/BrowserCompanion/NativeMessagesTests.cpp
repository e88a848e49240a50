#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <unistd.h>

#include "Companions/Browser/Host/NativeMessages.h"

namespace BrowserCompanion {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string head(std::uint32_t length) {
  std::string bytes(sizeof length, '\0');
  std::memcpy(bytes.data(), &length, sizeof length);
  return bytes;
}

std::string framed(const std::string& message) {
  return head(static_cast<std::uint32_t>(message.size())) + message;
}

std::vector<std::string> messages(MessageReader& reader) {
  std::vector<std::string> all;
  for (auto next = reader.next().value(); next; next = reader.next().value())
    all.push_back(*next);
  return all;
}

TEST(MessageReader, YieldsTheMessagesInTheirOrder) {
  MessageReader reader;
  reader.add(framed("one") + framed("") + framed("three"));
  EXPECT_THAT(messages(reader), ElementsAre("one", "", "three"));
  EXPECT_THAT(messages(reader), IsEmpty());
  reader.add(framed("four"));
  EXPECT_THAT(messages(reader), ElementsAre("four"));
}

TEST(MessageReader, PutsMessagesTogetherHoweverTheyAreDivided) {
  const std::string bytes = framed("one") + framed(std::string(70, 'x')) + framed("three");
  for (std::size_t size = 1; size < bytes.size(); ++size) {
    MessageReader reader;
    std::vector<std::string> all;
    for (std::size_t begin = 0; begin < bytes.size(); begin += size) {
      reader.add(std::string_view(bytes).substr(begin, size));
      for (std::string& message : messages(reader))
        all.push_back(std::move(message));
    }
    EXPECT_THAT(all, ElementsAre("one", std::string(70, 'x'), "three")) << size;
  }
}

TEST(MessageReader, TakesMessagesUpToTheLongest) {
  MessageReader reader;
  reader.add(framed(std::string(longestMessage, 'x')));
  EXPECT_EQ(reader.next().value()->size(), longestMessage);
  reader.add(head(longestMessage + 1));
  EXPECT_EQ(reader.next().error(), "The browser sends a message of " + std::to_string(longestMessage + 1) + " bytes.");
}

TEST(MessageReader, RefusesALengthWithoutWaitingForTheMessage) {
  MessageReader reader;
  reader.add("\xFF\xFF\xFF\xFF");
  EXPECT_EQ(reader.next().error(), "The browser sends a message of 4294967295 bytes.");
}

TEST(NativeMessages, AreWrittenAsTheyAreRead) {
  int ends[2];
  ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
  EXPECT_TRUE(writeMessage(ends[1], "one"));
  EXPECT_TRUE(writeMessage(ends[1], ""));
  close(ends[1]);
  char bytes[100];
  const ssize_t count = read(ends[0], bytes, sizeof bytes);
  close(ends[0]);
  EXPECT_EQ(std::string(bytes, static_cast<std::size_t>(count)), framed("one") + framed(""));
}

TEST(NativeMessages, CannotBeWrittenToAClosedFile) {
  EXPECT_FALSE(writeMessage(-1, "one"));
}

}  // namespace
}  // namespace BrowserCompanion
