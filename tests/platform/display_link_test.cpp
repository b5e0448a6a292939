// platform/display_link_test.cpp: who is called at a beat when listeners come and go meanwhile.
#include "velmora/platform/display_link.h"

#include <gtest/gtest.h>

#include <string>

TEST(DisplayLink, ListenersComeAndGoInsideABeatAndHearItsTimeInTheOrderOfTheirComing) {
  VELDisplayLink link;
  std::string heard;
  uint64_t first = 0, third = 0;
  const auto says = [&](char name) {
    return [&heard, name](double seconds) { heard += name + std::to_string(static_cast<int>(seconds)); };
  };
  first = link.add([&, owned = std::string(64, 'x')](double) {
    heard += 'a';
    link.remove(first);
    link.remove(third);
    heard += owned.back();  // the closure lives until its call ends
  });
  const uint64_t second = link.add([&](double) {
    heard += 'b';
    link.add(says('d'));
    link.add(says('e'));
  });
  third = link.add(says('c'));
  link.add(nullptr);
  EXPECT_EQ(link.lastTick(), 0.0);
  link.tick(1.0);
  EXPECT_EQ(heard, "axb");
  link.remove(second);
  link.remove(12345);
  link.tick(7.0);
  EXPECT_EQ(heard, "axbd7e7");
  EXPECT_EQ(link.lastTick(), 7.0);
}
