#include "platform/linux/power_supplies.h"

#include <array>
#include <string>

#include "gmock/gmock.h"

#include "fakes/file_tree.h"

namespace quibbly::linux_services {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

constexpr auto directory = "sys/class/power_supply";
constexpr auto onAc = PowerSource::acPowerState;
constexpr auto onBattery = PowerSource::batteryPowerState;

struct Expected {
  std::optional<std::int64_t> current;
  std::optional<std::int64_t> max;
  std::string_view state;
  std::optional<bool> charging;
};

PowerSource source(std::string_view type, const Expected& e) {
  return {std::string(type), e.current, e.max, std::string(e.state), e.charging};
}

PowerSource internal(const Expected& expected) { return source(PowerSource::internalBatteryType, expected); }

TEST(Batteries, of_a_machine_are_one_internal_battery) {
  struct Case {
    const char* supplies;
    Expected expected;
  };
  const auto cases = std::to_array<Case>({
      {"AC/type: Mains | online: 1\n"
       "BAT0/type: Battery | present: 1 | status: Charging | energy_now: 30 | energy_full: 50 | capacity: 61",
       {30, 50, onAc, true}},
      {"BAT1/type: Battery | status: Discharging | charge_now: 15 | charge_full: 30", {15, 30, onBattery, false}},
      {"BAT/type: Battery | scope: System | status: Full | capacity: 97", {97, 100, onAc, false}},
      {"BAT0/type: Battery | status: Not charging | energy_now: 10 | energy_full: 20\n"
       "BAT1/type: Battery | status: Discharging | energy_now: 5 | energy_full: 80",
       {15, 100, onBattery, false}},
      {"BAT0/type: Battery | status: Charging | charge_now: 1 | charge_full: 10 | energy_now: 7 | energy_full: 9\n"
       "BAT1/type: Battery | status: Full | charge_now: 30 | charge_full: 30",
       {31, 40, onAc, true}},
      // The mean of 25, 80 and 46.
      {"BAT0/type: Battery | status: Full | energy_now: 20 | energy_full: 80 | capacity: 99\n"
       "BAT1/type: Battery | status: Full | charge_now: 8 | charge_full: 10\n"
       "BAT2/type: Battery | status: Full | capacity: 46\n"
       "BAT3/type: Battery | status: Full",
       {50, 100, onAc, false}},
      // An empty bay.
      {"BAT0/type: Battery | present: 0\nBAT1/type: Battery | status: Full | energy_now: 9 | energy_full: 10",
       {9, 10, onAc, false}},
      // A gauge that has drifted.
      {"BAT0/type: Battery | status: Full | energy_now: 52 | energy_full: 50", {50, 50, onAc, false}},
      // Nonsense.
      {"BAT0/type: Battery | status: ? | energy_now: -1 | energy_full: 9 | charge_now: 5 | charge_full: 0",
       {{}, {}, onAc, false}},
      {"BAT0/type: Battery | status: Full | energy_now: 9223372036854775807 | energy_full: 9223372036854775807\n"
       "BAT1/type: Battery | status: Full | energy_now: 9223372036854775807 | energy_full: 9223372036854775807",
       {{}, {}, onAc, false}},
      // A status that cannot be read.
      {"BAT0/type: Battery\nBAT1/type: Battery | status: Full", {{}, {}, onBattery, false}},
  });
  for (const auto& [supplies, expected] : cases) {
    fakes::FileTree tree;
    tree.addListing(directory, supplies);
    EXPECT_THAT(PowerSupplies(tree.root()).sources(), Optional(ElementsAre(internal(expected)))) << supplies;
  }
}

TEST(ExternalPower, is_what_some_supply_delivers_to_the_machine) {
  const auto cases = std::to_array<std::pair<const char*, std::string_view>>({
      {"AC/type: Mains | online: 1", onAc},
      {"AC/type: Mains | online: 0\nusb/type: USB_PD | online: 2", onAc},
      {"pen/type: USB | scope: Device | online: 1", onBattery},
      {"odd/online: 1", onBattery},
      {"ups/type: UPS | online: 1", onBattery},
      {"c:001/type: USB | online: 1 | device/typec/port0/power_role: [source] sink", onBattery},
      {"c:001/type: USB | online: 1 | device/typec/port0/power_role: source [sink]", onAc},
      {"c/device/typec/port0/power_role: [source]\nc/device/typec/port1/power_role: [sink]\nc/type: USB | online: 1",
       onAc},
  });
  for (const auto& [supplies, state] : cases) {
    fakes::FileTree tree;
    tree.addListing(directory, supplies);
    tree.addListing(directory, "BAT0/type: Battery | status: Discharging");
    const auto sources = PowerSupplies(tree.root()).sources();
    ASSERT_TRUE(sources && !sources->empty()) << supplies;
    EXPECT_EQ(sources->front().state, state) << supplies;
  }
}

TEST(PowerSupplies, that_are_no_battery_of_the_machine_are_not_taken_for_one) {
  fakes::FileTree tree;
  PowerSupplies supplies(tree.root());
  tree.addListing(directory, "AC/type: Mains | online: 0\nmouse/type: Battery | scope: Device | capacity: 5");
  EXPECT_THAT(supplies.sources(), Optional(IsEmpty()));

  const auto ups = source("UPS", {80, 100, onBattery, false});
  tree.addListing(directory, "a-ups/type: UPS | capacity: 80 | status: Discharging");
  EXPECT_THAT(supplies.sources(), Optional(ElementsAre(ups)));

  tree.addListing(directory, "BAT0/type: Battery | status: Full | capacity: 70");
  EXPECT_THAT(supplies.sources(), Optional(ElementsAre(internal({70, 100, onAc, false}), ups)));
}

TEST(PowerSupplies, that_cannot_be_read_give_no_answer_and_no_wait) {
  fakes::FileTree tree;
  PowerSupplies supplies(tree.root());
  EXPECT_EQ(supplies.sources(), std::nullopt);

  tree.addListing(directory, "BAT0/type: Battery");
  tree.fifo("sys/class/power_supply/BAT0/energy_now");
  tree.link("sys/class/power_supply/BAT0/status", "/dev/zero");
  tree.fifo("sys/class/power_supply/BAT1/type");
  tree.add("sys/class/power_supply/BAT2", "no directory");
  EXPECT_THAT(supplies.sources(), Optional(ElementsAre(internal({{}, {}, onBattery, {}}))));
}

}  // namespace
}  // namespace quibbly::linux_services
