#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tilwin {

/// The number and what is counted, in the plural unless there is one: "2 windows".
[[nodiscard]] std::string counted(std::size_t count, std::string_view singular);
[[nodiscard]] std::string joined(const std::vector<std::string>& texts, std::string_view separator);

}  // namespace tilwin
