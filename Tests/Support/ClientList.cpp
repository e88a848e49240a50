#include "Tests/Support/ClientList.h"

#include <algorithm>
#include <string>

#include <gtest/gtest.h>

namespace TestSupport {

ClientList::ClientList() : spy_({"xprop", "-root", "-spy", "_NET_CLIENT_LIST"}) {}

void ClientList::awaitCount(std::size_t count) {
  // Each change is a line such as "_NET_CLIENT_LIST(WINDOW): window id # 0x400001, 0x600003".
  while (const auto line = spy_.readLine()) {
    const bool isEmpty = line->find("0x") == std::string::npos;
    const auto windows = isEmpty ? 0 : static_cast<std::size_t>(std::ranges::count(*line, ',')) + 1;
    if (windows == count)
      return;
  }
  ADD_FAILURE() << "the window list cannot be followed";
}

}  // namespace TestSupport
