// The loop of a host: a formula that was read once, a million times with a changing x; in turns
// with muParser and with Lua, best of seven.
//   prepared
#include <lua.hpp>
#include <muParser.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <sstream>

#include "interpreter/state.h"

namespace {

constexpr char kFormula[] = "a*x*x+b*x+c";
constexpr int kTimes = 1'000'000;

class Mirlow {
 public:
  Mirlow() { state_.ProcessLine("a=1;b=2;c=3"); }
  double Evaluate(double x) {
    x_.Set(x);
    return formula_.EvaluateNumber().value_or(0);
  }

 private:
  std::ostringstream out_;
  std::istringstream in_;
  Quarn::State state_{out_, in_};
  Quarn::Variable x_ = state_.GetVariable("x");
  Quarn::Expression formula_ = state_.Prepare(kFormula);
};

class MuParser {
 public:
  MuParser() {
    parser_.DefineVar("a", &a_);
    parser_.DefineVar("b", &b_);
    parser_.DefineVar("c", &c_);
    parser_.DefineVar("x", &x_);
    parser_.SetExpr(kFormula);
  }
  double Evaluate(double x) {
    x_ = x;
    return parser_.Eval();
  }

 private:
  double a_ = 1, b_ = 2, c_ = 3, x_ = 0;
  mu::Parser parser_;
};

// The formula as a function that was compiled once; its names are globals, which anyone may set.
class Lua {
 public:
  Lua() {
    luaL_dostring(lua_, "a = 1.0 b = 2.0 c = 3.0");
    luaL_loadstring(lua_, (std::string("return ") + kFormula).c_str());
  }
  ~Lua() { lua_close(lua_); }
  Lua(const Lua&) = delete;
  Lua& operator=(const Lua&) = delete;

  double Evaluate(double x) {
    lua_pushnumber(lua_, x);
    lua_setglobal(lua_, "x");
    lua_pushvalue(lua_, 1);
    lua_call(lua_, 0, 1);
    const double result = lua_tonumber(lua_, -1);
    lua_pop(lua_, 1);
    return result;
  }

 private:
  lua_State* lua_ = luaL_newstate();
};

// Nanoseconds of one evaluation, and what all of them come to.
struct Measured {
  double best = 1e9;
  double sum = 0;
};

template <class Host>
void Measure(Host& host, Measured& measured) {
  measured.sum = 0;
  const auto begin = std::chrono::steady_clock::now();
  for (int i = 0; i < kTimes; ++i) measured.sum += host.Evaluate(i);
  const std::chrono::duration<double, std::nano> took = std::chrono::steady_clock::now() - begin;
  measured.best = std::min(measured.best, took.count() / kTimes);
}

}  // namespace

int main() {
  Mirlow mirlow;
  MuParser mu_parser;
  Lua lua;
  Measured ours, by_mu_parser, by_lua;
  for (int round = 0; round < 7; ++round) {
    Measure(mu_parser, by_mu_parser);
    Measure(lua, by_lua);
    Measure(mirlow, ours);
  }
  std::printf("mirlow %.1f ns, muParser %.1f ns: ratio %.2f; Lua %.1f ns: ratio %.2f\n", ours.best,
              by_mu_parser.best, ours.best / by_mu_parser.best, by_lua.best,
              ours.best / by_lua.best);
  return ours.sum == by_mu_parser.sum && ours.sum == by_lua.sum ? 0 : 1;
}
