// Property values of the four kinds that cross into the IDE, kept apart.
//
// A 16-bit integer is never sent as a 32-bit one and a Boolean never as an
// integer: the kind is part of the value.
#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "vb/text.hpp"

namespace vb {

// The language's Boolean: 16 bits, True is -1 and False is 0.
enum class Boolean : std::int16_t { False = 0, True = -1 };

constexpr Boolean ToBoolean(bool b) { return b ? Boolean::True : Boolean::False; }
constexpr bool IsTrue(Boolean b) { return b != Boolean::False; }

using Integer = std::int16_t;  // the language's Integer
using Long = std::int32_t;     // the language's Long
using Single = float;          // the language's Single

enum class Kind { Text, Boolean, Integer, Long };

// The name of a kind as traces and messages print it: "text", "boolean",
// "integer16", "integer32".
const char* KindName(Kind kind);

class Value {
 public:
  Value() : v_(Text{}) {}
  Value(Text t) : v_(std::move(t)) {}
  Value(const char16_t* t) : v_(Text(t)) {}
  Value(Boolean b) : v_(b) {}
  Value(Integer i) : v_(i) {}
  Value(Long l) : v_(l) {}

  Kind GetKind() const { return static_cast<Kind>(v_.index()); }
  bool Is(Kind k) const { return GetKind() == k; }
  const Text& AsText() const { return std::get<Text>(v_); }
  Boolean AsBoolean() const { return std::get<Boolean>(v_); }
  Integer AsInteger() const { return std::get<Integer>(v_); }
  Long AsLong() const { return std::get<Long>(v_); }

  // The text the runtime would give for this value: "True"/"False" for a
  // Boolean, decimal digits for numbers.
  Text ToText() const;

  friend bool operator==(const Value&, const Value&) = default;

 private:
  std::variant<Text, Boolean, Integer, Long> v_;
};

}  // namespace vb
