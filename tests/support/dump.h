// Short texts of the vocabulary types, so that a failing comparison shows what it compared.
#pragma once

#include <string>

#include "utils/s_ctnr.h"
#include "utils/s_str.h"
#include "utils/s_str_convert.h"

namespace Quarn {

template <class T>
std::string Dump(const s_str_t<T>& text) {
  return Narrow(text).Get();
}
inline std::string Dump(s_uint value) { return ToText(value).Get(); }

// Every piece is followed by "|".
template <class T>
std::string Dump(const s_ctnr<s_str_t<T>>& pieces) {
  std::string joined;
  for (const auto& piece : pieces) joined += Dump(piece) + "|";
  return joined;
}

}  // namespace Quarn
