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

/// The number of characters of a well-formed UTF-8 text.
std::size_t characterCount(std::string_view text);

/// The code point of `text`; nothing if `text` is not exactly one well-formed character.
std::optional<char32_t> codePoint(std::string_view text);

} // namespace chiffrolo
