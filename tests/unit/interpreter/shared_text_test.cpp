// Tests of SharedText: its parts, and what it refuses.
#include "interpreter/shared_text.h"

#include <gtest/gtest.h>

#include <new>
#include <optional>

namespace Quarn {
namespace {

TEST(SharedText, PartsAreStretchesOfTheSameCharacters) {
  const SharedText whole("a+(b*c)");
  const SharedText product = whole.GetPart(3, 3);
  EXPECT_EQ(product.GetView(), "b*c");
  EXPECT_EQ(product.GetView().data(), whole.GetView().data() + 3);
  EXPECT_EQ(product.GetWhole(), "a+(b*c)");
  EXPECT_EQ(product.GetBegin(), 3U);
  EXPECT_EQ(product.GetEnd(), 6U);
  EXPECT_EQ(product.GetPart(5, 1).GetView(), "c");
}

TEST(SharedText, ThePartsKeepTheWhole) {
  std::optional<SharedText> whole("a+b");
  const SharedText part = whole->GetPart(2, 1);
  whole.reset();
  EXPECT_EQ(part.GetView(), "b");
  EXPECT_EQ(part.GetWhole(), "a+b");
}

// Only the length of the view is looked at.
TEST(SharedText, HasFewerThanFourGigabytes) {
  EXPECT_THROW(SharedText(std::string_view("a", 0xFFFFFFFF)), std::bad_alloc);
  if constexpr (sizeof(std::size_t) > 4) {
    EXPECT_THROW(SharedText(std::string_view("a", std::size_t{0xFFFFFFFF} + 2)), std::bad_alloc);
  }
}

}  // namespace
}  // namespace Quarn
