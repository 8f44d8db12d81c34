#include <cstdint>
#include <string>

#include "fuzz/fuzzer.h"
#include "platform/linux/desktop_index.h"
#include "platform/linux/text_encoding.h"
#include "platform/linux/window_applications.h"

/// A locale, the class of a window, and desktop entry files by which the window is known.
namespace quibbly::fuzz {
namespace {

using namespace linux_services;

void checkIndex(const DesktopIndex& index, const DesktopEntry& entry) {
  const DesktopEntry* const byId = index.byId(entry.id);
  demand((byId != nullptr) == entry.installed(), "an entry is found by its id when it is installed");
  const DesktopEntry* const byClass = index.byStartupWmClass(entry.startupWmClass);
  demand(byClass == nullptr || (byClass->startupWmClass == entry.startupWmClass && byClass->installed()),
         "what is found by its class has that class");
  demand(byClass != nullptr || !entry.installed() || entry.startupWmClass.empty(), "and is found when it is installed");
}

void tryWindow(std::string_view property, const DesktopIndex& index) {
  constexpr std::uint32_t self = 7;
  DesktopWindow window;
  setWindowClass(window, property);
  demand(isUtf8(window.instance) && isUtf8(window.className), "the names of a window are UTF-8");
  const ApplicationsReading reading = decideApplications({.managed = {window}, .active = window}, index, self);
  demand(reading.running.size() <= 1, "a window is one application");
  if (!reading.frontmost) return;
  demand(isUtf8(reading.frontmost->localizedName.value_or("")), "the name in front is UTF-8");
}

}  // namespace

void tryInput(std::string_view input) {
  constexpr std::size_t mostFiles = 4;
  const auto parts = partsOf(input, 2 + mostFiles);
  const auto locales = messageLocales({.lang = std::string(parts[0])});
  demand(locales.size() <= 4, "a locale has four names at the most");

  DesktopIndex index;
  for (std::size_t i = 0; i < mostFiles; ++i) {
    const auto entry = parseDesktopEntry("entry-" + std::to_string(i), parts[2 + i], locales);
    if (!entry) continue;
    demand(isUtf8(entry->name) && isUtf8(entry->startupWmClass), "names are UTF-8");
    index.add(*entry);
    checkIndex(index, *entry);
  }
  tryWindow(parts[1], index);
}

}  // namespace quibbly::fuzz
