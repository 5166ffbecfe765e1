// The values of a host's types, each in another of the ways in which a host may write them.
#pragma once

#include <string>

#include "tests/random_host/description.h"
#include "types/holder.h"

namespace Quarn::random_host {

// Of several types: an object knows its own. It serves the changing types too.
class Plain : public Symbol {
 public:
  // The type must outlive the value.
  Plain(const HostType& type, const s_str& name, std::string payload)
      : Symbol(name), type_(&type), payload_(std::move(payload)) {}

  s_str ToString() const override { return TextOf(*type_, GetName().Get(), payload_); }
  s_str GetType() const override { return TypeOf(*type_, payload_); }
  s_str GetDeclaredType() const override { return "Declared"; }
  s_str GetFullType() const override { return FullTypeOf(*type_, payload_); }
  s_refptr<Symbol> Clone() const override { return s_refptr<Symbol>(new Plain(*this)); }

 private:
  const HostType* type_;
  std::string payload_;
};

// With all that types/holder.h brings along.
class Held : public Holder<Held, std::string> {
 public:
  static constexpr char kType[] = "Held";
  static std::string Write(const std::string& payload) { return payload; }
  using Holder::Holder;
};

// Of other types again, made of the class above by overriding what must differ and no more.
class Heir : public Held {
 public:
  // The type must outlive the value.
  Heir(const HostType& type, const s_str& name, const std::string& payload)
      : Held(name, payload), type_(&type) {}

  s_str GetType() const override { return type_->name; }
  s_refptr<Symbol> Clone() const override { return s_refptr<Symbol>(new Heir(*this)); }

 private:
  const HostType* type_;
};

}  // namespace Quarn::random_host
