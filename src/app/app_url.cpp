#include "app/app_url.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

#include "platform/ascii.h"

namespace quibbly::AppURL {
namespace {

constexpr std::string_view action = "roast";

/// What the test of a URL looks at, in lower case (RFC 3986, section 3).
struct Parts {
  std::string host;
  std::string path;
};

/// Letters of a host and of what we look for in a path are ASCII.
std::string inLowerCase(std::string text) {
  std::ranges::transform(text, text.begin(), lowered);
  return text;
}

/// The text with every %XX as the byte it stands for; absent when a percent sign begins nothing of the kind.
std::optional<std::string> decoded(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '%') {
      result += text[i];
      continue;
    }
    const std::string_view digits = text.substr(i + 1, 2);
    unsigned byte = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), byte, 16);
    if (digits.size() != 2 || error != std::errc() || end != digits.data() + 2) return std::nullopt;
    result += static_cast<char>(byte);
    i += 2;
  }
  return result;
}

/// The host of an authority, without who asks and at which port.
std::string_view hostOf(std::string_view authority) {
  if (const std::size_t user = authority.rfind('@'); user != std::string_view::npos) authority.remove_prefix(user + 1);
  const std::size_t port = authority.rfind(':');
  const bool isAddress = authority.starts_with('[') && authority.ends_with(']');
  return isAddress ? authority : authority.substr(0, port);
}

std::optional<Parts> partsOf(std::string_view url) {
  const auto isNoURLCharacter = [](char c) { return c > '\0' && c <= ' '; };
  if (!hasScheme(url) || std::ranges::any_of(url, isNoURLCharacter)) return std::nullopt;
  std::string_view rest = url.substr(scheme.size() + 1);
  rest = rest.substr(0, rest.find_first_of("?#"));
  std::string_view host;
  if (rest.starts_with("//")) {
    const std::size_t pathBegin = std::min(rest.find('/', 2), rest.size());
    host = hostOf(rest.substr(2, pathBegin - 2));
    rest = rest.substr(pathBegin);
  }
  auto decodedHost = decoded(host);
  auto decodedPath = decoded(rest);
  if (!decodedHost || !decodedPath) return std::nullopt;
  return Parts{.host = inLowerCase(std::move(*decodedHost)), .path = inLowerCase(std::move(*decodedPath))};
}

}  // namespace

bool hasScheme(std::string_view url) {
  return url.size() > scheme.size() && url[scheme.size()] == ':' &&
         equalIgnoringCase(url.substr(0, scheme.size()), scheme);
}

bool isRoastAction(std::string_view url) {
  const auto parts = partsOf(url);
  return parts && (parts->host == action || parts->path.ends_with(action));
}

}  // namespace quibbly::AppURL
