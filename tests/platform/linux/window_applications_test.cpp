#include "platform/linux/window_applications.h"

#include "gmock/gmock.h"
#include "gtest/gtest.h"

namespace quibbly::linux_services {
namespace {

using testing::ElementsAre;
using testing::SizeIs;
using enum WindowType;
using enum ActivationPolicy;

DesktopWindow window(std::optional<std::uint32_t> process, const std::string& instance, const std::string& className,
                     std::vector<WindowType> types = {}, bool skipTaskbar = false) {
  return {process, instance, className, std::move(types), skipTaskbar};
}

constexpr std::uint32_t ownProcess = 5000;

ApplicationsReading decide(std::vector<DesktopWindow> managed, std::optional<DesktopWindow> active = {}) {
  DesktopIndex index;
  const auto add = [&index](const char* id, const char* name, const char* startupWmClass) {
    index.add({.id = id, .name = name, .startupWmClass = startupWmClass, .application = true});
  };
  add("writer", "Office Writer", "office-writer");
  add("calc", "Office Calc", "office-calc");
  add("org.example.Paint", "", "");
  add("shell", "Shell by id", "");
  add("terminal", "Terminal by class", "Shell");
  add("google-chrome", "Chrome", "");
  return decideApplications({std::move(managed), std::move(active)}, index, ownProcess);
}

TEST(WindowApplications, the_first_known_type_and_the_taskbar_tell_regular_from_accessory) {
  const auto policyOf = [](std::vector<WindowType> types, bool skipTaskbar = false) {
    return decide({window(400, "a", "A", std::move(types), skipTaskbar)}).running.at(0).policy;
  };
  EXPECT_EQ(policyOf({}), regular);
  EXPECT_EQ(policyOf({unknown}), regular);
  EXPECT_EQ(policyOf({dialog, other}), regular);
  EXPECT_EQ(policyOf({unknown, other, normal}), accessory);
  EXPECT_EQ(policyOf({normal}, true), accessory);
  EXPECT_THAT(decide({window(400, "a", "A", {other}), window(400, "a", "A"), window(400, "a", "A", {}, true)}).running,
              ElementsAre(RunningApplication{regular, std::nullopt}));
}

TEST(WindowApplications, windows_group_by_process_and_else_by_class) {
  const auto groups = [](const DesktopWindow& a, const DesktopWindow& b) { return decide({a, b}).running.size(); };
  EXPECT_EQ(groups(window(300, "a", "A"), window(300, "b", "B")), 1U);
  EXPECT_EQ(groups(window(400, "a", "A"), window(401, "a", "A")), 2U);
  EXPECT_EQ(groups(window({}, "dialog", "A"), window({}, "main", "A")), 1U);
  EXPECT_EQ(groups(window({}, "a", "A"), window({}, "a", "B")), 2U);
  EXPECT_EQ(groups(window({}, "a", ""), window({}, "b", "")), 2U);
  EXPECT_EQ(groups(window(299, "a", "A"), window(299, "b", "B")), 2U) << "two sandboxes that count alike";
}

TEST(WindowApplications, an_entry_is_matched_by_startup_class_before_id_and_by_instance_before_class) {
  struct Case {
    const char *instance, *className;
    std::optional<std::string> bundleIdentifier, name;
  };
  for (const auto& [instance, className, bundleIdentifier, name] : std::initializer_list<Case>{
           {"office-calc", "office-writer", "calc", "Office Calc"},
           {"shell", "Shell", "terminal", "Terminal by class"},
           {"shell", "Google-chrome", "com.google.Chrome", "Shell by id"},
           {"Navigator", "Google-chrome", "com.google.Chrome", "Chrome"},
           {"org.example.Paint", "Paint", "org.example.Paint", "Paint"},
           {"discord", "Something", "com.hnc.Discord", "Something"},
           {"slack", "Discord", "com.hnc.Discord", "Discord"},
           {"xterm", "XTerm", std::nullopt, "XTerm"},
           {"", "", std::nullopt, std::nullopt},
       }) {
    const auto reading = decide({window(400, instance, className)}, window(400, instance, className));
    EXPECT_THAT(reading.running, ElementsAre(RunningApplication{regular, bundleIdentifier}));
    EXPECT_EQ(reading.frontmost, (FrontmostApplication{name, bundleIdentifier})) << instance << ' ' << className;
  }
}

TEST(WindowApplications, windows_of_one_process_speak_for_each_other_when_they_have_nothing_to_say) {
  const std::vector<DesktopWindow> office{window(400, "alert", "Alert"), window(400, "office-writer", "Office"),
                                          window(400, "office-calc", "Office")};
  const auto inFront = [&office](const DesktopWindow& active) { return decide(office, active).frontmost; };
  EXPECT_THAT(decide(office).running, ElementsAre(RunningApplication{regular, "writer"}));
  EXPECT_EQ(inFront(office[2]), (FrontmostApplication{"Office Calc", "calc"}));
  EXPECT_EQ(inFront(office[0]), (FrontmostApplication{"Office Writer", "writer"}));
  EXPECT_EQ(inFront(window(401, "alert", "Alert")), (FrontmostApplication{"Alert", std::nullopt}));
}

TEST(WindowApplications, this_program_is_neither_counted_nor_in_front) {
  for (const auto& own : {window(ownProcess, "a", "A"), window(400, "quibbly", ""), window(400, "a", "Quibbly"),
                          window({}, "org.quibbly.Quibbly", "B")}) {
    EXPECT_EQ(decide({own}, own), ApplicationsReading()) << own.instance;
  }
  EXPECT_THAT(decide({window(400, "quibbly-fan", "Fan")}).running, SizeIs(1));
}

TEST(WindowApplications, the_class_property_is_two_strings_of_which_any_part_may_be_missing) {
  using namespace std::string_view_literals;
  const auto parts = [](std::string_view property) {
    DesktopWindow window;
    setWindowClass(window, property);
    return window.instance + "|" + window.className;
  };
  EXPECT_EQ(parts("Navigator\0firefox\0"sv), "Navigator|firefox");
  EXPECT_EQ(parts("Navigator\0firefox"sv), "Navigator|firefox");
  EXPECT_EQ(parts("alone"sv), "alone|");
  EXPECT_EQ(parts("caf\xE9\0Cafe\0"sv), "|Cafe");
}

}  // namespace
}  // namespace quibbly::linux_services
