#include "platform/linux/bundle_identifiers.h"

#include "gtest/gtest.h"

namespace quibbly::linux_services {
namespace {

TEST(BundleIdentifiers, a_well_known_application_is_found_by_any_name_and_another_keeps_its_whole_id) {
  EXPECT_EQ(knownBundleIdentifier("Google-chrome"), "com.google.Chrome");
  EXPECT_EQ(knownBundleIdentifier("firefox-esr.desktop"), "org.mozilla.firefox");
  EXPECT_EQ(knownBundleIdentifier("ORG.telegram.desktop"), "com.tdesktop.Telegram");
  EXPECT_EQ(knownBundleIdentifier("org.telegram.desktop.desktop"), "com.tdesktop.Telegram");
  for (const char* other : {"fire", "firefox2", ".desktop", ""}) EXPECT_FALSE(knownBundleIdentifier(other)) << other;

  EXPECT_EQ(bundleIdentifierFor("code_code"), "com.microsoft.VSCode");
  EXPECT_EQ(bundleIdentifierFor("org.example.desktop"), "org.example.desktop");
}

}  // namespace
}  // namespace quibbly::linux_services
