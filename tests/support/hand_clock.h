// A clock that a test moves by hand. The fixture starts with fresh managers at 0 o'clock and lets
// none of them outlive the test.
//   TEST_F(MyTest, ...) { HandClock::now = 1.5; ... }
#pragma once

#include <gtest/gtest.h>

#include "utils/time_manager.h"
#include "utils/utils_manager.h"

namespace Quarn {

struct HandClock {
  static inline double now = 0;

  static s_double Read() { return now; }
};

class HandClockTest : public testing::Test {
 protected:
  HandClockTest() {
    DestroyManagers();
    HandClock::now = 0;
    TimeManager::Get().SetClock(&HandClock::Read);
  }
  ~HandClockTest() override { DestroyManagers(); }

 private:
  static void DestroyManagers() {
    TimeManager::Destroy();
    UtilsManager::Destroy();
  }
};

}  // namespace Quarn
