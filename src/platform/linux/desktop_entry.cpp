#include "platform/linux/desktop_entry.h"

#include <map>
#include <ranges>
#include <utility>

#include "platform/linux/text_encoding.h"
#include "platform/linux/text_fields.h"

namespace quibbly::linux_services {
namespace {

using Keys = std::map<std::string, std::string_view, std::less<>>;

void addKey(Keys& keys, std::string_view line) {
  const auto equals = line.find('=');
  if (line.starts_with('#') || equals == std::string_view::npos) return;
  keys.insert_or_assign(std::string(trimmed(line.substr(0, equals))), trimmed(line.substr(equals + 1)));
}

std::optional<Keys> mainGroup(std::string_view text) {
  std::optional<Keys> keys;
  for (const auto part : std::views::split(text, '\n')) {
    const auto line = trimmed(std::string_view(part.begin(), part.end()));
    if (!line.starts_with('[')) {
      if (keys) addKey(*keys, line);
      continue;
    }
    // The groups after it are the entry's actions, which have names of their own.
    if (keys) break;
    if (line == "[Desktop Entry]") keys.emplace();
  }
  return keys;
}

std::string_view rawValue(const Keys& keys, std::string_view key) {
  const auto found = keys.find(key);
  return found != keys.end() ? found->second : std::string_view();
}

char escaped(char letter) {
  switch (letter) {
    case 's':
      return ' ';
    case 'n':
      return '\n';
    case 't':
      return '\t';
    case 'r':
      return '\r';
    default:
      return letter;
  }
}

/// Empty for text in an encoding of former times, as for a missing key.
std::string textValue(const Keys& keys, std::string_view key) {
  const auto raw = rawValue(keys, key);
  if (!isUtf8(raw)) return {};
  std::string text;
  for (std::size_t at = 0; at < raw.size(); ++at) {
    const bool escape = raw[at] == '\\' && at + 1 < raw.size();
    text += escape ? escaped(raw[++at]) : raw[at];
  }
  return text;
}

std::string localizedName(const Keys& keys, const std::vector<std::string>& locales) {
  for (const auto& locale : locales) {
    if (auto text = textValue(keys, std::string("Name[").append(locale).append("]")); !text.empty()) return text;
  }
  return textValue(keys, "Name");
}

bool isTrue(const Keys& keys, std::string_view key) {
  const auto value = rawValue(keys, key);
  return value == "true" || value == "1";
}

/// Cuts what follows the last `mark`, and the mark, off the text; empty when there is none.
std::string_view cutTail(std::string_view& text, char mark) {
  const auto at = text.rfind(mark);
  if (at == std::string_view::npos) return {};
  const auto tail = text.substr(at + 1);
  text = text.substr(0, at);
  return tail;
}

}  // namespace

std::optional<DesktopEntry> parseDesktopEntry(std::string id, std::string_view text,
                                              const std::vector<std::string>& locales) {
  const auto keys = mainGroup(text);
  if (!keys) return std::nullopt;
  return DesktopEntry{.id = std::move(id),
                      .name = localizedName(*keys, locales),
                      .startupWmClass = textValue(*keys, "StartupWMClass"),
                      .application = rawValue(*keys, "Type") == "Application",
                      .hidden = isTrue(*keys, "Hidden"),
                      .noDisplay = isTrue(*keys, "NoDisplay")};
}

std::vector<std::string> messageLocales(const LocaleVariables& variables) {
  const auto& named = !variables.lcAll.empty()        ? variables.lcAll
                      : !variables.lcMessages.empty() ? variables.lcMessages
                                                      : variables.lang;
  std::string_view rest = named;
  const std::string modifier(cutTail(rest, '@'));
  cutTail(rest, '.');
  const std::string country(cutTail(rest, '_'));
  const std::string language(rest);
  if (language.empty() || language == "C" || language == "POSIX") return {};

  std::vector<std::string> locales;
  if (!country.empty() && !modifier.empty()) locales.push_back(language + "_" + country + "@" + modifier);
  if (!country.empty()) locales.push_back(language + "_" + country);
  if (!modifier.empty()) locales.push_back(language + "@" + modifier);
  locales.push_back(language);
  return locales;
}

}  // namespace quibbly::linux_services
