// Tests of s_refptr: who owns the object, how often, and when it goes.
#include "utils/s_refptr.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

#include "tests/support/sanitizers.h"
#include "utils/pool.h"

namespace Quarn {
namespace {

// Counts how many of its kind are alive; may own another.
struct Node {
  static inline int alive = 0;

  Node() { ++alive; }
  explicit Node(s_refptr<Node> next_node) : next(std::move(next_node)) { ++alive; }
  Node(const Node&) = delete;
  Node& operator=(const Node&) = delete;
  virtual ~Node() { --alive; }

  s_refptr<Node> next;
};

struct Leaf : Node {};

}  // namespace

// All pointers of one kind are friends of one another, so this one reaches the counts of others: it
// stands for a weak holder, of which there is none yet.
template <>
class s_refptr<void> {
 public:
  explicit s_refptr(const s_refptr<Node>& pointer) : counts_(pointer.counts_) { ++counts_->weak; }

  unsigned int GetStrongCount() const { return counts_->strong; }
  unsigned int GetWeakCount() const { return counts_->weak; }

  // The last to hold the counts frees them.
  void FreeCounts() { Pool::Free(counts_, sizeof *counts_); }

  static const void* FindCounts(const s_refptr<Node>& pointer) { return pointer.counts_; }

 private:
  OwnerCounts* counts_;
};

namespace {

using WeakHolder = s_refptr<void>;

class SRefptr : public testing::Test {
 protected:
  SRefptr() { Node::alive = 0; }
  ~SRefptr() override { EXPECT_EQ(Node::alive, 0) << "something was not freed"; }
};

TEST_F(SRefptr, IsNullUntilItIsGivenAnObject) {
  const s_refptr<Node> null;
  EXPECT_TRUE(null.IsNull());
  EXPECT_FALSE(static_cast<bool>(null));
  EXPECT_EQ(null.Get(), nullptr);
  EXPECT_EQ(null.GetCount(), 0U);
}

TEST_F(SRefptr, TheNumberOfOwnersIsAnSUint) {
  static_assert(std::is_same_v<decltype(s_refptr<Node>().GetCount()), s_uint>);
}

TEST_F(SRefptr, ANullObjectMakesANullPointer) {
  const s_refptr<Node> null(nullptr);
  EXPECT_TRUE(null.IsNull());
  EXPECT_EQ(null.GetCount(), 0U);
}

TEST_F(SRefptr, TakesOwnershipOfANewObject) {
  Node* object = new Node;
  {
    const s_refptr<Node> owner(object);
    EXPECT_FALSE(owner.IsNull());
    EXPECT_TRUE(static_cast<bool>(owner));
    EXPECT_EQ(owner.Get(), object);
    EXPECT_EQ(&*owner, object);
    EXPECT_TRUE(owner->next.IsNull());
    EXPECT_EQ(owner.GetCount(), 1U);
  }
  EXPECT_EQ(Node::alive, 0);
}

TEST_F(SRefptr, OwnershipIsTakenOpenly) {
  static_assert(!std::is_convertible_v<Node*, s_refptr<Node>>);
  static_assert(!std::is_convertible_v<s_refptr<Node>, bool>);
  static_assert(!std::is_convertible_v<s_refptr<Node>, s_refptr<Leaf>>);
}

TEST_F(SRefptr, ACopySharesTheObject) {
  const s_refptr<Node> owner(new Node);
  {
    const s_refptr<Node> copy = owner;
    EXPECT_EQ(copy.Get(), owner.Get());
    EXPECT_EQ(owner.GetCount(), 2U);
    EXPECT_EQ(copy.GetCount(), 2U);
  }
  EXPECT_EQ(owner.GetCount(), 1U);
  EXPECT_EQ(Node::alive, 1);
}

TEST_F(SRefptr, ACopyOfNullIsNull) {
  const s_refptr<Node> null;
  const s_refptr<Node> copy = null;
  EXPECT_TRUE(copy.IsNull());
}

TEST_F(SRefptr, AMoveLeavesNullBehind) {
  s_refptr<Node> owner(new Node);
  Node* object = owner.Get();
  s_refptr<Node> moved = std::move(owner);
  EXPECT_TRUE(owner.IsNull());
  EXPECT_EQ(owner.GetCount(), 0U);
  EXPECT_EQ(moved.Get(), object);
  EXPECT_EQ(moved.GetCount(), 1U);
  owner = std::move(moved);
  EXPECT_TRUE(moved.IsNull());
  EXPECT_EQ(owner.Get(), object);
}

TEST_F(SRefptr, AssignmentReleasesTheOldAndSharesTheNew) {
  s_refptr<Node> a(new Node);
  const s_refptr<Node> b(new Node);
  a = b;
  EXPECT_EQ(Node::alive, 1);
  EXPECT_EQ(a.Get(), b.Get());
  EXPECT_EQ(b.GetCount(), 2U);
}

TEST_F(SRefptr, AssignmentOfTheSameObjectChangesNothing) {
  s_refptr<Node> a(new Node);
  const s_refptr<Node> b = a;
  a = b;
  EXPECT_EQ(a.GetCount(), 2U);
  EXPECT_EQ(Node::alive, 1);
}

TEST_F(SRefptr, SelfAssignmentChangesNothing) {
  s_refptr<Node> owner(new Node);
  s_refptr<Node>& same = owner;
  owner = same;
  EXPECT_EQ(owner.GetCount(), 1U);
  EXPECT_EQ(Node::alive, 1);
  owner = std::move(same);
  EXPECT_EQ(owner.GetCount(), 1U);
  EXPECT_EQ(Node::alive, 1);

  s_refptr<Node> null;
  s_refptr<Node>& same_null = null;
  null = same_null;
  EXPECT_TRUE(null.IsNull());
}

TEST_F(SRefptr, NullOverTheLastReferenceFreesTheObject) {
  s_refptr<Node> owner(new Node);
  const s_refptr<Node> null;
  owner = null;
  EXPECT_EQ(Node::alive, 0);
  EXPECT_TRUE(owner.IsNull());
  EXPECT_EQ(owner.GetCount(), 0U);
}

TEST_F(SRefptr, NullOverOneOfManyKeepsTheObject) {
  s_refptr<Node> owner(new Node);
  const s_refptr<Node> other = owner;
  owner = s_refptr<Node>();
  EXPECT_TRUE(owner.IsNull());
  EXPECT_EQ(other.GetCount(), 1U);
  EXPECT_EQ(Node::alive, 1);
}

// The source of the assignment dies with the object that the target lets go.
TEST_F(SRefptr, TheSourceMayLiveInsideTheReleasedObject) {
  s_refptr<Node> list(new Node(s_refptr<Node>(new Node)));
  Node* second = list->next.Get();
  list = list->next;
  EXPECT_EQ(list.Get(), second);
  EXPECT_EQ(list.GetCount(), 1U);
  EXPECT_EQ(Node::alive, 1);

  list = s_refptr<Node>(new Node(list));
  list = std::move(list->next);
  EXPECT_EQ(list.Get(), second);
  EXPECT_EQ(list.GetCount(), 1U);
  EXPECT_EQ(Node::alive, 1);

  list = list->next;  // null
  EXPECT_TRUE(list.IsNull());
}

TEST_F(SRefptr, APointerToTheBaseSharesObjectAndCounts) {
  s_refptr<Leaf> leaf(new Leaf);
  s_refptr<Node> node = leaf;
  EXPECT_EQ(node.Get(), leaf.Get());
  EXPECT_EQ(leaf.GetCount(), 2U);
  leaf = s_refptr<Leaf>();
  EXPECT_EQ(node.GetCount(), 1U);
  EXPECT_EQ(Node::alive, 1);
  node = s_refptr<Leaf>(new Leaf);
  EXPECT_EQ(node.GetCount(), 1U);
  EXPECT_EQ(Node::alive, 1);
}

TEST_F(SRefptr, TheWeakCountKeepsTheCountsButNotTheObject) {
  s_refptr<Node> owner(new Node);
  WeakHolder weak(owner);
  EXPECT_EQ(weak.GetStrongCount(), 1U);
  s_refptr<Node> other = owner;
  EXPECT_EQ(weak.GetStrongCount(), 2U);
  EXPECT_EQ(owner.GetCount(), 2U);  // weak holders are no owners
  owner = s_refptr<Node>();
  EXPECT_EQ(Node::alive, 1);
  EXPECT_EQ(weak.GetStrongCount(), 1U);
  other = s_refptr<Node>();
  EXPECT_EQ(Node::alive, 0);
  EXPECT_EQ(weak.GetStrongCount(), 0U);  // still there, and tells that the object is gone
  EXPECT_EQ(weak.GetWeakCount(), 1U);
  weak.FreeCounts();
}

TEST_F(SRefptr, BothCountsAreFreedWithTheLastOwner) {
  if (kSanitized) GTEST_SKIP() << "the sanitizer watches over the blocks, and none is used again";
  s_refptr<Node> owner(new Node);
  const void* counts = WeakHolder::FindCounts(owner);
  owner = s_refptr<Node>();
  // The pool hands out first what was given back last; the object is not from the pool.
  void* block = Pool::Allocate(2 * sizeof(unsigned int));
  EXPECT_EQ(block, counts);
  Pool::Free(block, 2 * sizeof(unsigned int));
}

TEST_F(SRefptr, AnObjectMayBeConst) {
  const s_refptr<Leaf> leaf(new Leaf);
  const s_refptr<const Node> seen = leaf;
  EXPECT_EQ(leaf.GetCount(), 2U);
  EXPECT_EQ(seen.Get(), leaf.Get());
}

TEST_F(SRefptr, SwapExchangesTheOwners) {
  s_refptr<Node> a(new Node), b;
  Node* object = a.Get();
  a.Swap(b);
  EXPECT_TRUE(a.IsNull());
  EXPECT_EQ(b.Get(), object);
  EXPECT_EQ(b.GetCount(), 1U);
}

}  // namespace
}  // namespace Quarn
