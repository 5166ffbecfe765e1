// Tests of UtilsManager: where texts go, and the lines of warnings and errors.
#include "utils/utils_manager.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

#include "tests/support/dump.h"
#include "utils/profiler.h"
#include "utils/time_manager.h"
#include "utils/timer.h"

namespace Quarn {
namespace {

std::string printed;

void Print(const s_str& text) { printed += text.Get() + "|"; }

class UtilsManagerTest : public testing::Test {
 protected:
  UtilsManagerTest() {
    UtilsManager::Destroy();
    printed.clear();
  }
  ~UtilsManagerTest() override { UtilsManager::Destroy(); }
};

TEST_F(UtilsManagerTest, DropsTextsUntilAPrintFunctionIsInstalled) {
  UtilsManager::Get().Print("a");
  UtilsManager::Get().Warning("File", "b");
  UtilsManager::Get().Error("", "c");
  EXPECT_EQ(printed, "");
  EXPECT_EQ(Dump(UtilsManager::Get().GetDropped()), "3");
  UtilsManager::Get().SetPrintFunction(&Print);
  EXPECT_EQ(printed, "");  // what was dropped is lost
  UtilsManager::Get().Print("d");
  EXPECT_EQ(printed, "d|");
  EXPECT_EQ(Dump(UtilsManager::Get().GetDropped()), "3");
}

TEST_F(UtilsManagerTest, PassesTextsOnUnchanged) {
  UtilsManager::Get().SetPrintFunction(&Print);
  for (const char* text : {"", "a", " a\n\tb ", "# Error # : "}) {
    printed.clear();
    UtilsManager::Get().Print(text);
    EXPECT_EQ(printed, std::string(text) + "|");
  }
  EXPECT_EQ(Dump(UtilsManager::Get().GetDropped()), "0");
}

TEST_F(UtilsManagerTest, WarningsAndErrorsNameTheirSource) {
  const struct {
    const char *source, *message, *warning, *error;
  } kRows[] = {
      {"",     "x", "# Warning # : x",        "# Error # : x"       },
      {"File", "x", "# Warning # : File : x", "# Error # : File : x"},
      {"File", "",  "# Warning # : File : ",  "# Error # : File : " },
      {" ",    "x", "# Warning # :   : x",    "# Error # :   : x"   }, // a blank is a name
  };
  UtilsManager::Get().SetPrintFunction(&Print);
  for (const auto& row : kRows) {
    printed.clear();
    UtilsManager::Get().Warning(row.source, row.message);
    UtilsManager::Get().Error(row.source, row.message);
    EXPECT_EQ(printed, std::string(row.warning) + "|" + row.error + "|");
  }
}

TEST_F(UtilsManagerTest, EveryClassIsASourceUnderItsOwnName) {
  UtilsManager::Get().SetPrintFunction(&Print);
  for (const char* source : {UtilsManager::kClassName, TimeManager::kClassName, Timer::kClassName,
                             PeriodicTimer::kClassName, Profiler::kClassName, Chrono::kClassName}) {
    UtilsManager::Get().Warning(source, "x");
  }
  EXPECT_EQ(printed,
            "# Warning # : UtilsManager : x|# Warning # : TimeManager : x|# Warning # : Timer : x|"
            "# Warning # : PeriodicTimer : x|# Warning # : Profiler : x|# Warning # : Chrono : x|");
}

TEST_F(UtilsManagerTest, ANullPrintFunctionDropsAgain) {
  UtilsManager::Get().SetPrintFunction(&Print);
  UtilsManager::Get().SetPrintFunction(nullptr);
  UtilsManager::Get().Print("a");
  EXPECT_EQ(printed, "");
  EXPECT_EQ(Dump(UtilsManager::Get().GetDropped()), "1");
}

TEST_F(UtilsManagerTest, DestroyForgetsThePrintFunction) {
  UtilsManager::Get().SetPrintFunction(&Print);
  UtilsManager::Destroy();
  UtilsManager::Get().Print("a");
  EXPECT_EQ(printed, "");
}

template <class T>
concept IsDeletedByAnyone = requires(T* object) {
  delete object;
};

TEST_F(UtilsManagerTest, IsDeletedByDestroyAlone) {
  static_assert(IsDeletedByAnyone<std::string>);
  static_assert(!IsDeletedByAnyone<UtilsManager>);  // delete &UtilsManager::Get()
  static_assert(!IsDeletedByAnyone<Manager<UtilsManager>>);
  static_assert(!std::is_destructible_v<UtilsManager>);
}

// A warning from an object that is made before main has the manager and every text it needs.
struct WarnsBeforeMain {
  WarnsBeforeMain() {
    UtilsManager::Get().SetPrintFunction(&Remember);
    UtilsManager::Get().Warning(UtilsManager::kClassName, "early");
    UtilsManager::Destroy();
  }
  static void Remember(const s_str& text) { seen = text.Get() == kExpected; }

  static constexpr const char* kExpected = "# Warning # : UtilsManager : early";
  static constinit inline bool seen = false;
};
const WarnsBeforeMain warns_before_main;

TEST_F(UtilsManagerTest, WorksBeforeMain) { EXPECT_TRUE(WarnsBeforeMain::seen); }

}  // namespace
}  // namespace Quarn
