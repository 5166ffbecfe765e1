// Tests of Workspace: the lists that calls borrow come back empty and are lent again.
#include "interpreter/workspace.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace Quarn {
namespace {

s_refptr<Symbol> New() { return s_refptr<Symbol>(new Symbol("a")); }

TEST(LentLists, AreEmptyAtFirst) {
  Workspace workspace;
  const LentLists lists(workspace);
  EXPECT_TRUE(lists->arguments.IsEmpty());
  EXPECT_TRUE(lists->results.IsEmpty());
}

TEST(LentLists, GoBackEmptyAndAreLentAgain) {
  Workspace workspace;
  const s_refptr<Symbol> value = New();
  const CallLists* first = nullptr;
  {
    const LentLists lists(workspace);
    first = &*lists;
    lists->arguments.PushBack(value);
    lists->results.PushBack(value);
    EXPECT_EQ(value.GetCount(), 3U);
  }
  EXPECT_EQ(value.GetCount(), 1U);
  const LentLists again(workspace);
  EXPECT_EQ(&*again, first);
  EXPECT_TRUE(again->arguments.IsEmpty());
  EXPECT_TRUE(again->results.IsEmpty());
}

TEST(LentLists, CallsInsideCallsHaveListsOfTheirOwn) {
  Workspace workspace;
  const LentLists outer(workspace);
  outer->arguments.PushBack(New());
  const LentLists inner(workspace);
  EXPECT_NE(&*inner, &*outer);
  EXPECT_TRUE(inner->arguments.IsEmpty());
}

TEST(LentLists, MoreThanAreKeptAreLetGo) {
  Workspace workspace;
  {
    std::vector<std::unique_ptr<LentLists>> nested;
    for (int i = 0; i < 100; ++i) nested.push_back(std::make_unique<LentLists>(workspace));
    while (!nested.empty()) nested.pop_back();  // a vector lets go of the first one first
  }
  EXPECT_GT(workspace.call_lists.size(), 0U);
  EXPECT_LT(workspace.call_lists.size(), 100U);
}

}  // namespace
}  // namespace Quarn
