// SPDX-License-Identifier: MIT
#include "StyleText.h"

#include <algorithm>
#include <charconv>

namespace tessera::mitab {
namespace {

std::string_view TakeUntil(std::string_view &rest, std::string_view borders) {
  const std::size_t end = std::min(rest.find_first_of(borders), rest.size());
  const std::string_view taken = rest.substr(0, end);
  rest.remove_prefix(end);
  return taken;
}

}  // namespace

StyleText::StyleText(std::string_view text) {
  while (!text.empty()) m_tools.push_back(ReadTool(text));
}

StyleText::Tool StyleText::ReadTool(std::string_view &rest) {
  Tool tool{.name = std::string(TakeUntil(rest, "(")), .entries = {}};
  while (!rest.empty() && rest.front() != ')') {
    rest.remove_prefix(1);  // the bracket or a comma
    Entry entry{.key = std::string(TakeUntil(rest, ":,)")), .value = {}};
    if (!rest.empty() && rest.front() == ':') {
      rest.remove_prefix(1);
      entry.value = ReadValue(rest);
    }
    tool.entries.push_back(std::move(entry));
  }
  while (!rest.empty() && (rest.front() == ')' || rest.front() == ';' || rest.front() == ' ')) rest.remove_prefix(1);
  return tool;
}

std::string StyleText::ReadValue(std::string_view &rest) {
  if (rest.empty() || rest.front() != '"') return std::string(TakeUntil(rest, ",)"));
  rest.remove_prefix(1);
  std::string value;
  while (!rest.empty() && rest.front() != '"') {
    const bool isEscape = rest.size() > 1 && rest[0] == '\\' && (rest[1] == '"' || rest[1] == '\\');
    value += rest[isEscape ? 1 : 0];
    rest.remove_prefix(isEscape ? 2 : 1);
  }
  static_cast<void>(TakeUntil(rest, ",)"));
  return value;
}

const StyleText::Tool *StyleText::Find(std::string_view tool) const {
  const auto found =
      std::find_if(m_tools.begin(), m_tools.end(), [tool](const Tool &each) { return each.name == tool; });
  return found == m_tools.end() ? nullptr : &*found;
}

const StyleText::Entry *StyleText::Find(std::string_view tool, std::string_view key) const {
  const Tool *found = Find(tool);
  if (found == nullptr) return nullptr;
  const auto &entries = found->entries;
  const auto entry = std::find_if(entries.begin(), entries.end(), [key](const Entry &each) { return each.key == key; });
  return entry == entries.end() ? nullptr : &*entry;
}

std::string_view StyleText::Setting(std::string_view tool, std::string_view key) const {
  const Entry *entry = Find(tool, key);
  return entry == nullptr ? std::string_view() : entry->value;
}

bool StyleText::HasSetting(std::string_view tool, std::string_view key) const {
  return Find(tool, key) != nullptr;
}

int StyleText::Color(std::string_view tool, std::string_view key, int otherwise) const {
  constexpr int Hexadecimal = 16;
  constexpr std::size_t MostDigits = 6;
  std::string_view text = Setting(tool, key);
  if (text.empty() || text.front() != '#') return otherwise;
  text = text.substr(1, MostDigits);
  int color = otherwise;
  std::from_chars(text.data(), text.data() + text.size(), color, Hexadecimal);
  return color;
}

double StyleText::Number(std::string_view tool, std::string_view key) const {
  const std::string_view text = Setting(tool, key);
  double number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

int NumberInId(std::string_view id, std::string_view prefix, int otherwise, std::string_view *rest) {
  const std::size_t at = id.find(prefix);
  if (at == std::string_view::npos) return otherwise;
  const std::string_view digits = id.substr(at + prefix.size());
  int number = otherwise;
  const char *end = std::from_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  if (rest != nullptr) *rest = digits.substr(std::size_t(end - digits.data()));
  return number;
}

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"') quoted += '\\';
    quoted += c;
  }
  return quoted += '"';
}

}  // namespace tessera::mitab
