// The one way a double becomes an integer: values read from files, and anything computed
// from them, may be infinite, not a number, or far beyond the integer's range.
#pragma once

#include <cmath>
#include <limits>
#include <type_traits>

namespace varena {

// `v` truncated toward zero into I, as a cast would; a value beyond I's range gives the
// nearest end of it (an infinity too), and a value that is not a number gives
// `seNonNumero`. A plain cast of such values is undefined, and in practice gives an index
// far outside any table.
template <class I>
constexpr I InteroSaturato(double v, I seNonNumero = I{0}) {
  static_assert(std::is_integral_v<I>);
  using L = std::numeric_limits<I>;
  if (v != v) return seNonNumero;
  // The largest value of a 64-bit integer is not a double: its nearest, 2^63 or 2^64, is
  // already out of range, so the test is "not below".
  if (v >= static_cast<double>(L::max())) return L::max();
  if (v <= static_cast<double>(L::min())) return L::min();
  return static_cast<I>(v);
}

}  // namespace varena
