// Forward declarations and short names of the vocabulary types.
#pragma once

#include <concepts>

namespace Quarn {

template <class T>
class s_bool_t;
template <std::integral T>
class s_int_t;
template <std::unsigned_integral T>
using s_uint_t = s_int_t<T>;
template <std::floating_point T>
class s_double_t;
template <std::floating_point T>
using s_float_t = s_double_t<T>;
template <class T>
class s_str_t;
template <class T>
class s_ctnr;
template <class T>
class s_refptr;

using s_bool = s_bool_t<bool>;
using s_int = s_int_t<int>;
using s_uint = s_uint_t<unsigned int>;
using s_ulong = s_uint_t<unsigned long>;
using s_double = s_double_t<double>;
using s_float = s_float_t<float>;
using s_str = s_str_t<char>;
using s_ustr = s_str_t<unsigned int>;  // 32-bit characters

}  // namespace Quarn
