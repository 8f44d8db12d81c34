#include <array>
#include <string>
#include <utility>

#include "gmock/gmock.h"

#include "fakes/file_tree.h"
#include "platform/linux/meminfo.h"
#include "platform/linux/proc_stat.h"

namespace quibbly::linux_services {
namespace {

using testing::Optional;

TEST(ProcStatText, becomes_four_counters) {
  const auto cases = std::to_array<std::pair<std::string, std::optional<ProcessorTicks>>>({
      // Interrupts and stolen time are system; guests are counted already.
      {"cpu  1000 200 30 4000 500 6 7 8 900 100\ncpu0 1 2 3 4\n", {{1000, 51, 4500, 200}}},
      {"cpu 1 2 3 4\n", {{1, 3, 4, 2}}},
      {"cpu  4294967297 18446744073709551615 4294967295 1 2 1 1 0 0 0\n", {{1, 1, 3, 4294967295}}},
      {"cpu  1 2 3\n", {}},
      {"cpu  1 2 3 4567", {}},
      {"cpu  1 2 3 -4\n", {}},
      {"cpu0 1 2 3 4\n", {}},
  });
  for (const auto& [text, expected] : cases) EXPECT_EQ(parseProcStat(text), expected) << text;
}

TEST(ProcStatFile, shows_a_counter_of_waiting_that_went_backwards) {
  fakes::FileTree tree;
  ProcStat stat(tree.root());
  tree.add("proc/stat", "cpu  10 0 0 100 50 0 0 0 0 0\n" + std::string(100'000, 'x'));
  EXPECT_THAT(stat.ticks(), Optional(ProcessorTicks{.user = 10, .system = 0, .idle = 150, .nice = 0}));
  tree.add("proc/stat", "cpu  11 0 0 100 40 0 0 0 0 0\n");
  EXPECT_THAT(stat.ticks(), Optional(ProcessorTicks{.user = 11, .system = 0, .idle = 140, .nice = 0}));
}

constexpr std::uint64_t kB = 1024;

MemoryUse use(std::uint64_t active, std::uint64_t wired, std::uint64_t compressor, std::uint64_t physical) {
  return {.activeBytes = active, .wiredBytes = wired, .compressorBytes = compressor, .physicalBytes = physical};
}

TEST(MemInfoText, splits_the_memory_in_use) {
  struct Case {
    const char* what;
    const char* text;
    std::uint64_t compressedSwap;
    std::optional<MemoryUse> expected = std::nullopt;
  };
  const auto cases = std::to_array<Case>({
      {"a desktop with zswap",
       "MemTotal: 1000 kB\nMemFree: 100 kB\nMemAvailable: 400 kB\nUnevictable: 10 kB\nZswap: 70 kB\nZswapped: 300 kB\n"
       "SUnreclaim: 20 kB\nKernelStack: 3 kB\nPageTables: 4 kB\nSecPageTables: 5 kB\nPercpu: 6 kB\n",
       0, use(482 * kB, 48 * kB, 70 * kB, 1000 * kB)},
      {"compressed swap devices beside zswap", "MemTotal: 100 kB\nMemAvailable: 40 kB\nZswap: 5 kB\n", 10 * kB,
       use(45 * kB, 0, 15 * kB, 100 * kB)},
      {"a container without MemAvailable", "MemTotal: 100 kB\nMemFree: 30 kB\n", 0, use(70 * kB, 0, 0, 100 * kB)},
      {"a container with more available than there is", "MemTotal: 100 kB\nMemFree: 30 kB\nMemAvailable: 900 kB\n", 0,
       use(70 * kB, 0, 0, 100 * kB)},
      {"a container that shows its host's kernel memory", "MemTotal: 100 kB\nMemFree: 30 kB\nSUnreclaim: 900 kB\n",
       20 * kB, use(0, 50 * kB, 20 * kB, 100 * kB)},
      {"more compressed than used", "MemTotal: 100 kB\nMemAvailable: 90 kB\nSUnreclaim: 5 kB\nZswap: 20 kB\n", ~0ULL,
       use(0, 0, 10 * kB, 100 * kB)},
      {"numbers that overflow when summed",
       "MemTotal: 100 kB\nMemAvailable: 90 kB\nSUnreclaim: 18014398509481983 kB\nPercpu: 18014398509481983 kB\n", 0,
       use(10 * kB, 0, 0, 100 * kB)},
      {"nothing is known to be free", "MemTotal: 100 kB\nMemFree: 200 kB\n", 0},
      {"no total", "MemFree: 1 kB\nMemAvailable: 1 kB\n", 0},
      {"cut within a number", "MemTotal: 100 kB\nMemFree: 3", 0},
      {"garbage", "MemTotal: many kB\n:::\n\n   kB\n", 0},
  });
  for (const auto& [what, text, swap, expected] : cases) EXPECT_EQ(parseMemInfo(text, swap).use, expected) << what;
}

TEST(MemInfoText, tells_swap_apart_from_memory) {
  const auto cases = std::to_array<std::pair<const char*, std::optional<std::uint64_t>>>({
      {"SwapCached: 9 kB\nSwapTotal: 50 kB\nSwapFree: 20 kB\n", 30 * kB},
      {"SwapTotal: 20 kB\nSwapFree: 50 kB\n", 0},
      {"MemTotal: 100 kB\nMemFree: 30 kB\n", {}},
  });
  for (const auto& [text, expected] : cases) EXPECT_EQ(parseMemInfo(text, 0).swapUsedBytes, expected) << text;
}

TEST(MemInfoFile, adds_up_the_compressed_swap_devices) {
  fakes::FileTree tree;
  tree.add("proc/meminfo", "MemTotal: 100 kB\nMemAvailable: 40 kB\nSwapTotal: 9 kB\nSwapFree: 9 kB\n");
  tree.addListing("sys/block",
                  "sda/mm_stat: 1 1 1024000 0\nzram0/mm_stat: 4096 74 12288 0 12288 0 0 0 0\n"
                  "zram1/mm_stat: 9999999 9999 2048 0\nzram2/mm_stat: 1 2\nzram3/mm_stat: 1 2 -3");
  tree.link("sys/block/zram4/mm_stat", "/dev/zero");
  EXPECT_THAT(MemInfo(tree.root()).statistics().use, Optional(use(46 * kB, 0, 14 * kB, 100 * kB)));
}

TEST(ProcessorAndMemoryFiles, that_are_no_files_give_no_answer_and_no_wait) {
  fakes::FileTree empty;
  fakes::FileTree fifos;
  fifos.fifo("proc/stat");
  fifos.fifo("proc/meminfo");
  fakes::FileTree endless;
  endless.link("proc/stat", "/dev/zero");
  endless.link("proc/meminfo", "/dev/zero");
  for (fakes::FileTree* tree : {&empty, &fifos, &endless}) {
    EXPECT_EQ(ProcStat(tree->root()).ticks(), std::nullopt);
    EXPECT_EQ(MemInfo(tree->root()).statistics(), MemoryReading{});
  }
}

}  // namespace
}  // namespace quibbly::linux_services
