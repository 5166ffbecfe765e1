// Tests that asking for large pages changes nothing that storage holds, wherever it lies.
#include "utils/large_pages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace Quarn {
namespace {

TEST(UseLargePages, LeavesWhatIsThere) {
  for (const std::size_t bytes : {std::size_t{0}, std::size_t{1}, kLargePage, 3 * kLargePage + 5}) {
    std::vector<char> storage(bytes + 1, 'x');
    UseLargePages(storage.data(), bytes);
    UseLargePages(storage.data() + 1, bytes);
    EXPECT_EQ(std::count(storage.begin(), storage.end(), 'x'), static_cast<long>(bytes + 1));
  }
}

}  // namespace
}  // namespace Quarn
