#include "interpreter/symbol_table.h"

#include <algorithm>
#include <vector>

namespace Quarn {

s_ctnr<s_str> SymbolTable::GetNames() const {
  std::vector<std::string_view> names;
  for (const auto& [name, value] : symbols_) names.push_back(name.GetView());
  if (last_result_) names.push_back(kLastResult);
  std::sort(names.begin(), names.end());
  s_ctnr<s_str> sorted;
  for (std::string_view name : names) sorted.PushBack(s_str(name));
  return sorted;
}

}  // namespace Quarn
