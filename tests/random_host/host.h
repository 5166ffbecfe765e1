// Host registers what a description describes with a State, and keeps the list of the calls that it
// gets: text constructors, operators and functions, with their operands.
//   Host host(state, description);
//   host.Begin();
//   state.Compute("fa(1)+k2");
//   host.GetCalls();  // "fa7(1)\nt3(k2)\nb12(5, k2)\n"
// Literal tests are plain functions and find their type in a static place, so there can be one Host
// at a time.
#pragma once

#include <array>
#include <map>
#include <string>

#include "interpreter/state.h"
#include "tests/random_host/description.h"

namespace Quarn::random_host {

class Host {
 public:
  // The state must outlive it.
  Host(State& state, const Description& description);
  ~Host();
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  // Registers more rows.
  void Add(const Description& more);

  // Forgets the calls, and the values that bodies kept.
  void Begin();
  const std::string& GetCalls() const { return calls_; }

  // For the functions that a type registers.
  s_refptr<Symbol> CreateEmpty(std::size_t type, const s_str& name);
  bool IsLiteral(std::size_t type, const s_str& text) const;
  s_refptr<Symbol> CreateFrom(std::size_t type, const s_str& name, const s_str& text, s_str& error);

 private:
  void Add(const LiteralRow& row);
  void Add(const OperatorRow& row);
  void Add(const FunctionRow& row);

  std::string Note(const Body& body, const std::vector<std::string>& operands, const s_str& error);
  std::string Note(const Body& body, const Values& operands, const s_str& error);
  s_refptr<Symbol> Carry(const Body& body, const Values& operands, s_str& error);
  bool Call(const Body& body, const Values& arguments, Values& results, s_str& error);
  s_refptr<Symbol> Do(Outcome outcome, const Body& body, const std::string& call, const s_str& name,
                      const Values& operands, s_str& error);
  s_refptr<Symbol> New(const Body& body, const std::string& call, const s_str& name,
                       const Values& operands) const;
  s_refptr<Symbol> NewOfHost(const std::string& type, const s_str& name,
                             std::uint32_t number) const;
  // What `f` gives, while no other body begins to evaluate: it might be the same, without end.
  template <class F>
  s_refptr<Symbol> Alone(F f) {
    is_evaluating_ = true;
    s_refptr<Symbol> value = f();
    is_evaluating_ = false;
    return value;
  }
  s_refptr<Symbol> Apply(const Body& body, const Values& operands, s_str& error);

  State& state_;
  std::array<HostType, kTypes> types_;
  std::array<LiteralRow, kTypes> literals_;
  std::string calls_;
  std::map<std::string, s_refptr<Symbol>> kept_;  // by the body's label
  bool is_evaluating_ = false;                    // is a body at it?
};

}  // namespace Quarn::random_host
