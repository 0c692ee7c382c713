// SPDX-License-Identifier: MIT
#include "screen/speech.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

namespace chiffrolo {

namespace {

using Words = std::span<const Word>;

constexpr std::array<std::pair<std::string_view, std::string_view>, 6> signs{{
    {"+", "plus"},
    {"-", "moins"},
    {"x", "fois"},
    {":", "divisé par"},
    {"=", "égale"},
    {"%", "pour cent"},
}};

// ---- Words -------------------------------------------------------------------------------------------

bool isQuestion(const Word& word) { return word.text == "?"; }

bool isVerdict(const Word& word) {
  return word.role == TextRole::rightGuess || word.role == TextRole::wrongGuess;
}

/// On the surface, an equals sign may be so close to a number that both are one word.
std::vector<Word> withEqualsApart(Words words) {
  std::vector<Word> apart;
  for (const auto& [text, role] : words) {
    const auto equals = text.find('=');
    if (equals == std::string::npos) {
      apart.push_back({text, role});
      continue;
    }
    for (const auto& part : {text.substr(0, equals), std::string("="), text.substr(equals + 1)})
      if (!part.empty()) apart.push_back({part, role});
  }
  return apart;
}

std::string spokenWord(const Word& word) {
  if (word.role == TextRole::rightGuess) return "juste : " + word.text;
  if (word.role == TextRole::wrongGuess) return "faux : " + word.text;
  const auto* const sign = std::ranges::find(signs, word.text, &decltype(signs)::value_type::first);
  return sign == signs.end() ? word.text : std::string(sign->second);
}

/// Commas separate a verdict from the words around it.
std::string spokenWords(Words words) {
  std::string said;
  const Word* previous = nullptr;
  for (const Word& word : words) {
    if (previous != nullptr) said += isVerdict(*previous) || isVerdict(word) ? ", " : " ";
    said += spokenWord(word);
    previous = &word;
  }
  return said;
}

bool isStopwatch(const VisibleText& text) { return text.words.front().role == TextRole::stopwatch; }

/// The digits are separate words, because each is in a cell of its own.
std::string spokenTime(Words cells) {
  std::string digits;
  for (const Word& cell : cells)
    digits += cell.text;
  digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size() - 1));
  return digits + (digits == "0" || digits == "1" ? " seconde" : " secondes");
}

// ---- What has changed --------------------------------------------------------------------------------

bool samePlace(const VisibleText& one, const VisibleText& other) {
  constexpr Points tolerance = 1;
  return std::abs(one.place.left - other.place.left) < tolerance &&
         std::abs(one.place.top - other.place.top) < tolerance;
}

/// The texts of `some` that are not in `others` with the same words at the same place.
std::vector<VisibleText> without(const std::vector<VisibleText>& others,
                                 const std::vector<VisibleText>& some) {
  std::vector<VisibleText> rest;
  for (const VisibleText& text : some) {
    const auto isSame = [&](const VisibleText& other) {
      return samePlace(text, other) && text.words == other.words;
    };
    if (std::ranges::none_of(others, isSame)) rest.push_back({withEqualsApart(text.words), text.place});
  }
  return rest;
}

/// The number of words up to the equals sign, or of all words if there is none.
std::size_t questionLength(Words words) {
  const auto equals = std::ranges::find(words, "=", &Word::text);
  return static_cast<std::size_t>(equals - words.begin()) + (equals == words.end() ? 0 : 1);
}

/// What has been typed of the answer, if nothing else has changed and the answer is not submitted yet.
std::optional<std::string> typedAnswer(const std::vector<VisibleText>& gone,
                                       const std::vector<VisibleText>& fresh) {
  if (gone.size() != 1 || fresh.size() != 1) return {};
  const Words before = gone.front().words;
  const Words now = fresh.front().words;
  const std::size_t length = questionLength(now);
  if (length == now.size() || !isQuestion(now.back())) return {};
  if (!std::ranges::equal(before.first(questionLength(before)), now.first(length))) return {};
  const Words answer = now.subspan(length, now.size() - length - 1);
  return answer.empty() ? "effacé" : spokenWords(answer);
}

/// The words to announce: only the new ones if a verdict was added to a text that was there before.
Words newPart(const VisibleText& text, const std::vector<VisibleText>& gone) {
  const Words words = text.words;
  const auto before =
      std::ranges::find_if(gone, [&](const VisibleText& other) { return samePlace(text, other); });
  if (before == gone.end() || std::ranges::none_of(words, isVerdict)) return words;
  return {std::ranges::mismatch(words, before->words).in1, words.end()};
}

/// A lone question mark is not announced.
bool isOnlyQuestionMarks(Words words) { return std::ranges::all_of(words, isQuestion); }

void appendSentence(std::string& said, std::string_view sentence) {
  if (!said.empty()) said += ". ";
  said += sentence;
}

std::string allOf(const Contents& contents) {
  std::string said = contents.title;
  for (const auto& caption : contents.captions)
    if (caption != contents.title) appendSentence(said, caption);
  for (const auto& text : contents.texts)
    appendSentence(said, spoken(text));
  return said;
}

} // namespace

std::string spoken(const VisibleText& text) {
  return isStopwatch(text) ? spokenTime(text.words) : spokenWords(withEqualsApart(text.words));
}

std::string announcement(const Contents& before, const Contents& now) {
  if (before.screen != now.screen) return allOf(now);
  const auto gone = without(now.texts, before.texts);
  const auto fresh = without(before.texts, now.texts);
  if (const auto answer = typedAnswer(gone, fresh)) return *answer;
  std::string said;
  for (const auto& caption : now.captions)
    if (std::ranges::find(before.captions, caption) == before.captions.end()) appendSentence(said, caption);
  for (const auto& text : fresh) {
    const Words words = newPart(text, gone);
    if (!isStopwatch(text) && !isOnlyQuestionMarks(words)) appendSentence(said, spokenWords(words));
  }
  return said;
}

} // namespace chiffrolo
