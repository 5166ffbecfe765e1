// Tests of Manager: the instance is made on first use, is one, and can be destroyed and made again.
#include "utils/manager.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace Quarn {
namespace {

class Counter : public Manager<Counter> {
 public:
  static inline int made = 0;
  static inline int alive = 0;

  int value = 0;

 private:
  friend class Manager<Counter>;
  Counter() {
    ++made;
    ++alive;
  }
  ~Counter() override { --alive; }
};

class Other : public Manager<Other> {
 public:
  int value = 0;

 private:
  friend class Manager<Other>;
  Other() = default;
  ~Other() override = default;
};

class ManagerTest : public testing::Test {
 protected:
  ManagerTest() {
    Counter::Destroy();
    Counter::made = 0;
  }
  ~ManagerTest() override {
    Counter::Destroy();
    Other::Destroy();
  }
};

TEST_F(ManagerTest, MakesTheInstanceOnFirstUse) {
  EXPECT_EQ(Counter::made, 0);
  Counter::Get();
  EXPECT_EQ(Counter::made, 1);
  EXPECT_EQ(Counter::alive, 1);
}

TEST_F(ManagerTest, GivesTheSameInstanceEveryTime) {
  Counter::Get().value = 5;
  EXPECT_EQ(Counter::Get().value, 5);
  EXPECT_EQ(&Counter::Get(), &Counter::Get());
  EXPECT_EQ(Counter::made, 1);
}

TEST_F(ManagerTest, EachClassHasItsOwnInstance) {
  Counter::Get().value = 5;
  EXPECT_EQ(Other::Get().value, 0);
}

TEST_F(ManagerTest, DestroyMakesTheNextUseStartAfresh) {
  Counter::Get().value = 5;
  Counter::Destroy();
  EXPECT_EQ(Counter::alive, 0);
  EXPECT_EQ(Counter::Get().value, 0);
  EXPECT_EQ(Counter::made, 2);
}

TEST_F(ManagerTest, DestroyWithoutAnInstanceDoesNothing) {
  Counter::Destroy();
  Counter::Destroy();
  EXPECT_EQ(Counter::made, 0);
  EXPECT_EQ(Counter::alive, 0);
}

TEST_F(ManagerTest, IsDestroyedThroughItsBaseAndNeverCopied) {
  static_assert(std::has_virtual_destructor_v<Manager<Counter>>);
  static_assert(!std::is_copy_constructible_v<Counter>);
  static_assert(!std::is_copy_assignable_v<Counter>);
  static_assert(!std::is_default_constructible_v<Counter>);
}

TEST_F(ManagerTest, IsDestroyedByDestroyAlone) {
  static_assert(!std::is_destructible_v<Counter>);
  static_assert(!std::is_destructible_v<Manager<Counter>>);
}

}  // namespace
}  // namespace Quarn
