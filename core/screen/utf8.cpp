// SPDX-License-Identifier: MIT
#include "screen/utf8.h"

#include <algorithm>
#include <array>

namespace chiffrolo {

namespace {

bool continues(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

/// The length in bytes of the character that begins with `byte`; 0 if no character begins with it.
std::size_t lengthFrom(unsigned char byte) {
  if (byte < 0x80) return 1;
  if (byte >= 0xC2 && byte < 0xE0) return 2;
  if (byte >= 0xE0 && byte < 0xF0) return 3;
  if (byte >= 0xF0 && byte < 0xF5) return 4;
  return 0;
}

bool isScalarValue(char32_t code, std::size_t length) {
  static constexpr std::array<char32_t, 5> lowestOfLength{0, 0, 0x80, 0x800, 0x10000};
  const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
  return code >= lowestOfLength[length] && code <= 0x10FFFF && !surrogate;
}

} // namespace

std::vector<std::string_view> characters(std::string_view text) {
  std::vector<std::string_view> found;
  found.reserve(text.size());
  for (std::size_t begin = 0; begin < text.size();) {
    std::size_t end = begin + 1;
    while (end < text.size() && continues(text[end]))
      ++end;
    found.push_back(text.substr(begin, end - begin));
    begin = end;
  }
  return found;
}

std::size_t characterCount(std::string_view text) {
  return text.size() - static_cast<std::size_t>(std::ranges::count_if(text, continues));
}

std::optional<char32_t> codePoint(std::string_view text) {
  if (text.empty()) return std::nullopt;
  const auto first = static_cast<unsigned char>(text.front());
  const std::size_t length = lengthFrom(first);
  if (length == 0 || text.size() != length || !std::ranges::all_of(text.substr(1), continues))
    return std::nullopt;
  char32_t code = length == 1 ? first : first & (0x7FU >> length);
  for (const char byte : text.substr(1))
    code = code << 6U | (static_cast<unsigned char>(byte) & 0x3FU);
  if (!isScalarValue(code, length)) return std::nullopt;
  return code;
}

} // namespace chiffrolo
