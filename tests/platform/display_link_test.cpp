// platform/display_link_test.cpp: who is called at a beat when listeners come and go meanwhile.
#include "velmora/platform/display_link.h"

#include <gtest/gtest.h>

#include <string>

TEST(DisplayLink, ListenersHearTheGivenTimeInTheOrderOfTheirComing) {
  VELDisplayLink link;
  std::string heard;
  for (const char name : {'a', 'b'})
    link.add([&heard, name](double seconds) {
      heard += name;
      heard += std::to_string(static_cast<int>(seconds));
    });
  link.add(nullptr);
  EXPECT_EQ(link.lastTick(), 0.0);
  link.tick(7.0);
  EXPECT_EQ(heard, "a7b7");
  EXPECT_EQ(link.lastTick(), 7.0);
}

TEST(DisplayLink, AListenerMayRemoveItselfAndOthersAndAddSomeInsideABeat) {
  VELDisplayLink link;
  std::string heard;
  uint64_t first = 0, second = 0, third = 0;
  first = link.add([&, owned = std::string(64, 'x')](double) {
    heard += 'a';
    link.remove(first);
    link.remove(third);
    heard += owned.back();  // the closure lives until its call ends
  });
  second = link.add([&](double) {
    heard += 'b';
    link.add([&](double) { heard += 'd'; });
  });
  third = link.add([&](double) { heard += 'c'; });
  link.tick(1.0);
  EXPECT_EQ(heard, "axb");
  heard.clear();
  link.remove(second);
  link.remove(12345);
  link.tick(2.0);
  EXPECT_EQ(heard, "d");
}
