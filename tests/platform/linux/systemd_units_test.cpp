#include "platform/linux/systemd_units.h"

#include "gtest/gtest.h"

namespace quibbly::linux_services {
namespace {

const std::string uuid = "0f9e8d7c-1234-4abc-9def-0123456789ab";

TEST(SystemdUnits, a_unit_name_tells_its_application) {
  for (const auto& [unit, expected] : std::initializer_list<std::pair<std::string, std::string>>{
           {"app-org.gnome.Evince-12345.scope", "org.gnome.Evince"},
           {"app-gnome-google\\x2dchrome-4242.scope", "google-chrome"},
           {"app-flatpak-org.telegram.desktop-7.scope", "org.telegram.desktop"},
           {"app-KDE-org.kde.okular@12345.service", "org.kde.okular"},
           {"app-org.kde.amarok.service", "org.kde.amarok"},
           {"app-gnome-\\xc3\\xa4pfel-1.scope", "äpfel"},
           {"snap.firefox.firefox-" + uuid + ".scope", "firefox_firefox"},
           {"snap.telegram-desktop.telegram-desktop." + uuid + ".scope", "telegram-desktop_telegram-desktop"},
           {"snap.telegram\\x2ddesktop.main-" + uuid + ".scope", "telegram-desktop_main"},
       }) {
    EXPECT_EQ(applicationIdOfUnit(unit), expected) << unit;
  }
}

TEST(SystemdUnits, what_the_user_did_not_start_and_what_is_not_whole_tells_none) {
  for (const std::string unit :
       {"app-org.kde.kdeconnect.daemon@autostart.service", "snap.cups.cupsd.service", "cgroup.procs",
        "dbus-:1.2-org.gnome.Nautilus@0.service", "app-gnome\\x2dsession\\x2dmanager.slice", "application-foo-1.scope",
        "app-firefox.scope", "app-firefox-.scope", "app--1.scope", "app.service", "app-@1.service", "app-a-b-c-1.scope",
        "app-a\\x2-1.scope", "app-a\\x2g-1.scope", "app-a\\x00-1.scope", "app-a\\n-1.scope",
        "snap.firefox.firefox-1234.scope", ""}) {
    EXPECT_EQ(applicationIdOfUnit(unit), std::nullopt) << unit;
  }
  for (const std::string start : {"snap.firefox.hook.configure-", "snap.firefox-", "snap.", "snap..a-", "vte-spawn-"}) {
    EXPECT_EQ(applicationIdOfUnit(start + uuid + ".scope"), std::nullopt) << start;
  }
}

}  // namespace
}  // namespace quibbly::linux_services
