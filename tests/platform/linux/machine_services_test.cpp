#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>

#include "gmock/gmock.h"

#include "fakes/file_tree.h"
#include "platform/linux/home_directory.h"
#include "platform/linux/kernel_random.h"
#include "platform/linux/platform_profile.h"
#include "platform/linux/statvfs_home_volume.h"

namespace quibbly::linux_services {
namespace {

TEST(Volume, tells_sizes_from_block_counts) {
  struct Case {
    std::uint64_t blocks;
    std::uint64_t available;
    VolumeCapacity expected;
  };
  constexpr std::uint64_t size = 4096;
  const auto cases = std::to_array<Case>({
      {100, 25, {25 * size, 100 * size}},
      {100, ~0ULL - 2, {{}, 100 * size}},  // below zero, as some servers say when the superuser's share is in use
      {0, 0, {}},
      {~0ULL, 1, {size, {}}},
  });
  for (const auto& [blocks, available, expected] : cases) {
    struct statvfs volume{};
    volume.f_blocks = blocks;
    volume.f_bfree = 30;
    volume.f_bavail = available;
    volume.f_frsize = size;
    volume.f_bsize = 1 << 20;
    EXPECT_EQ(volumeCapacity(volume), expected) << blocks << " " << available;
  }
}

TEST(HomeVolume, is_asked_for_a_directory_that_may_be_gone) {
  const fakes::FileTree tree;
  const auto capacity = StatvfsHomeVolume(tree.root()).capacity();
  ASSERT_TRUE(capacity && capacity->availableBytes && capacity->totalBytes);
  EXPECT_LE(*capacity->availableBytes, *capacity->totalBytes);
  EXPECT_EQ(StatvfsHomeVolume(tree.root() / "gone").capacity(), std::nullopt);
}

TEST(HomeDirectory, comes_from_the_environment_only_when_absolute) {
  const char* const set = std::getenv("HOME");
  const std::string before = set != nullptr ? set : "";
  ::setenv("HOME", "/somewhere/else", 1);
  EXPECT_EQ(homeDirectory(), "/somewhere/else");
  for (const char* odd : {"", "relative"}) {
    ::setenv("HOME", odd, 1);
    EXPECT_TRUE(homeDirectory().is_absolute()) << odd;
  }
  ::unsetenv("HOME");
  EXPECT_TRUE(homeDirectory().is_absolute());
  if (set != nullptr) ::setenv("HOME", before.c_str(), 1);
}

TEST(PlatformProfile, is_low_power_by_its_one_name) {
  fakes::FileTree tree;
  constexpr auto file = "sys/firmware/acpi/platform_profile";
  PlatformProfile profile(tree.root());
  EXPECT_EQ(profile.enabled(), std::nullopt);
  const auto cases = std::to_array<std::pair<const char*, std::optional<bool>>>(
      {{"low-power\n", true}, {"balanced\n", false}, {"low-power-ish\n", false}, {"", std::nullopt}});
  for (const auto& [content, expected] : cases) {
    tree.add(file, content);
    EXPECT_EQ(profile.enabled(), expected) << content;
  }
}

TEST(KernelRandom, survives_interruptions_short_answers_and_refusal) {
  KernelRandom piecemeal([](void* buffer, std::size_t, unsigned int) -> ssize_t {
    static int calls = 0;
    errno = EINTR;
    std::memset(buffer, ++calls / 2, 1);
    return calls % 2 == 1 ? -1 : 1;
  });
  const auto bits = piecemeal();
  EXPECT_EQ(std::memcmp(&bits, "\1\2\3\4\5\6\7\10", sizeof(bits)), 0);

  KernelRandom refused([](void*, std::size_t, unsigned int) -> ssize_t {
    errno = ENOSYS;
    return -1;
  });
  EXPECT_NE(refused(), refused());
  KernelRandom real;
  EXPECT_NE(real(), real());
}

}  // namespace
}  // namespace quibbly::linux_services
