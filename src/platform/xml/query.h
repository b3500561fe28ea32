#pragma once

#include <string_view>

namespace tessel::xml {

// The first element that the XPath selects from the node, as Element holds it; null when there is none.
[[nodiscard]] void* SelectElement(void* node, std::string_view xpath);

}  // namespace tessel::xml
