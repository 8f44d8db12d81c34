#include "platform/linux/desktop_entry.h"

#include "gmock/gmock.h"
#include "gtest/gtest.h"

namespace quibbly::linux_services {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(DesktopEntry, keys_are_those_of_the_main_group_and_not_of_an_action) {
  const auto entry = parseDesktopEntry("files",
                                       "# made by hand\r\n"
                                       "[Before]\nName=Wrong\n"
                                       "[Desktop Entry]\r\n"
                                       "Type = Application\r\n"
                                       "#Name=Comment\n"
                                       "no key\n"
                                       "Name=My\\sFiles\\\\Folders=\\\n"
                                       "StartupWMClass=Files\n"
                                       "[Desktop Action New]\nName=Wrong\nNoDisplay=true\nHidden=true\n",
                                       {});
  ASSERT_TRUE(entry);
  EXPECT_EQ(entry->id, "files");
  EXPECT_EQ(entry->name, "My Files\\Folders=\\");
  EXPECT_EQ(entry->startupWmClass, "Files");
  EXPECT_TRUE(entry->visible());
}

TEST(DesktopEntry, visible_and_installed_follow_its_flags) {
  for (const auto& [keys, installed, visible] : std::initializer_list<std::tuple<const char*, bool, bool>>{
           {"Type=Application\nNoDisplay=false\nHidden=false\n", true, true},
           {"Type=Application\nNoDisplay=true\n", true, false},
           {"Type=Application\nHidden=true\n", false, false},
           {"Type=Link\n", false, false},
       }) {
    const auto entry = parseDesktopEntry("a", std::string("[Desktop Entry]\n") + keys, {});
    ASSERT_TRUE(entry) << keys;
    EXPECT_EQ(entry->installed(), installed) << keys;
    EXPECT_EQ(entry->visible(), visible) << keys;
  }
  EXPECT_FALSE(parseDesktopEntry("a", std::string("\0\xFF[Desktop", 10), {}));
}

TEST(DesktopEntry, the_name_is_the_best_one_of_the_users_locale) {
  const std::string file =
      "[Desktop Entry]\nName[sr@latin]=Fajlovi\nName[sr]=Фајлови\nName[de]=Dateien\nName[pt_BR]=Arquivos\n"
      "Name[pt]=\nName[fr]=Caf\xE9\nName=Files\n";
  for (const auto& [locale, expected] : std::initializer_list<std::pair<const char*, const char*>>{
           {"sr_RS.UTF-8@latin", "Fajlovi"},
           {"sr_RS.UTF-8", "Фајлови"},
           {"de_AT.UTF-8", "Dateien"},
           {"pt_BR", "Arquivos"},
           {"pt_PT", "Files"},
           {"fr_FR", "Files"},
           {"C.UTF-8", "Files"},
       }) {
    EXPECT_EQ(parseDesktopEntry("a", file, messageLocales({.lang = locale}))->name, expected) << locale;
  }
}

TEST(MessageLocales, the_variables_overrule_each_other_in_their_order) {
  EXPECT_THAT(messageLocales({.lcAll = "de_DE.UTF-8@euro", .lcMessages = "fr", .lang = "en_GB"}),
              ElementsAre("de_DE@euro", "de_DE", "de@euro", "de"));
  EXPECT_THAT(messageLocales({.lcMessages = "fr@x", .lang = "en_GB"}), ElementsAre("fr@x", "fr"));
  EXPECT_THAT(messageLocales({.lcAll = "C", .lang = "en_GB"}), IsEmpty());
  EXPECT_THAT(messageLocales({}), IsEmpty());
}

}  // namespace
}  // namespace quibbly::linux_services
