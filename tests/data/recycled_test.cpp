#include "velmora/data/recycled.h"

#include <array>
#include <map>
#include <thread>

#include "tests/data/columns.h"
#include "tests/support/allocation_counter.h"

namespace {

using Numbers = std::array<double, 5>;

TEST(Recycled, ObjectsThatComeAndGoAllocateOnceAndAreInitialised) {
  std::vector<std::shared_ptr<Numbers>> frame(8);
  std::map<int, Numbers, std::less<>, VELRecyclingAllocator<std::pair<const int, Numbers>>> nodes;
  for (int i = 0; i < 3; ++i) {
    const AllocationCounter counter;
    for (auto& one : frame) one = nullptr;
    nodes.clear();
    for (auto& one : frame) one = VELMakeRecycled<Numbers>(Numbers{1.0, 2.0});
    nodes[1] = {3.0};
    for (const auto& one : frame) EXPECT_EQ(*one, (Numbers{1.0, 2.0}));
    EXPECT_EQ(counter.count() == 0, i > 0);
  }
}

// The leak sanitizer watches what the thread leaves behind, the address sanitizer what crosses over.
TEST(Recycled, EachThreadHasItsOwnStoreWhichEndsWithIt) {
  std::shared_ptr<Numbers> made;
  std::thread([&made] {
    static thread_local std::shared_ptr<Numbers> last;  // goes after the store
    last = VELMakeRecycled<Numbers>();
    for (size_t i = 0; i < 2 * VELRecyclingAllocator<Numbers>::kMostKept; ++i) {
      made = VELMakeRecycled<Numbers>(Numbers{static_cast<double>(i)});
      last = made;
    }
  }).join();
  EXPECT_EQ((*made)[0], 2.0 * VELRecyclingAllocator<Numbers>::kMostKept - 1.0);
  made.reset();
}

}  // namespace
