// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace chiffrolo {

/// The characters of a well-formed UTF-8 text, one view each into `text`.
std::vector<std::string_view> characters(std::string_view text);

/// How many characters a well-formed UTF-8 text has.
std::size_t characterCount(std::string_view text);

/// The code point of `text` if that is exactly one well-formed character, else nothing.
std::optional<char32_t> codePoint(std::string_view text);

} // namespace chiffrolo
