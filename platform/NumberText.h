#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/Text.h"
#include "platform/Variant.h"

namespace ovalia {

// A decimal number as written, before it becomes binary: digits * 10^exponent.
struct DecimalText {
  bool negative = false;
  std::string digits;
  int exponent = 0;

  // The nearest double; infinite beyond the range of doubles, zero below it.
  double toDouble() const;

  // Half to even at the fourth decimal; nothing beyond the range of amounts.
  std::optional<Currency> toCurrency() const;
};

// The signs that a reader of numbers goes by.
struct NumberSigns {
  char16_t decimal;
  char16_t grouping;  // passed over among the digits before the decimal sign; 0 for none
};

// Digits with decimal sign and exponent (e or d) at `at`, which moves on behind them; nothing, and `at`
// stays, when there is no digit. A letter that no digits follow is no exponent and is left unread.
std::optional<DecimalText> readDecimal(TextView text, std::size_t& at, NumberSigns signs);

// "&H" or "&O" and digits at `at`, with an optional closing "&". Up to 16 bits count as a signed Integer, up
// to 32 as a signed Long, as constants of the classic language do; "&" makes a Long. Nothing when there is no
// digit or more than 32 bits.
std::optional<std::int32_t> readRadixNumber(TextView text, std::size_t& at);

}  // namespace ovalia
