#include "shared/shared_storage.h"

#include <filesystem>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/failing_file_system.h"
#include "fakes/file_tree.h"
#include "fakes/fixed_container.h"
#include "platform/linux/kernel_random.h"
#include "platform/linux/posix_file_system.h"

namespace quibbly {
namespace {

using ::testing::ElementsAre;

const PendingNotify notify{.title = "t",
                           .body = "“b”\n",
                           .category = "c",
                           .createdAt = std::chrono::sys_days{std::chrono::year{2026} / 11 / 17}};

class Storage : public ::testing::Test {
 protected:
  std::vector<std::string> names() {
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(directory_)) found.push_back(entry.path().filename());
    return found;
  }
  static mode_t modeOf(const std::filesystem::path& path) {
    struct stat status{};
    ::stat(path.c_str(), &status);
    return status.st_mode & 0777U;
  }
  std::error_code readError() { return storage_.read<PendingNotify>("file.json").error(); }

  fakes::FileTree tree_;
  std::filesystem::path directory_ = tree_.root() / "data/group";
  fakes::FixedContainer container_{directory_};
  linux_services::PosixFileSystem real_;
  fakes::FailingFileSystem files_{real_};
  linux_services::KernelRandom random_;
  SharedStorage storage_{container_, files_, random_};
};

TEST_F(Storage, keeps_the_last_record_written_in_a_directory_and_files_of_the_users_own) {
  ::umask(0);
  const WidgetSnapshot mad{.uptimeSeconds = std::numeric_limits<double>::infinity()};
  EXPECT_EQ(storage_.write(mad, "file.json"), SharedStorageError::encodingFailed);
  EXPECT_FALSE(std::filesystem::exists(directory_));
  ASSERT_EQ(storage_.write(PendingNotify{}, "file.json"), std::error_code());
  ASSERT_EQ(storage_.write(notify, "file.json"), std::error_code());
  EXPECT_EQ(storage_.write(mad, "file.json"), SharedStorageError::encodingFailed);
  EXPECT_EQ(storage_.read<PendingNotify>("file.json"), notify);
  EXPECT_EQ(real_.read(directory_ / "file.json"),
            R"({"body":"“b”\n","category":"c","createdAt":"2026-11-17T00:00:00Z","title":"t"})");
  EXPECT_THAT(names(), ElementsAre("file.json"));
  EXPECT_EQ(modeOf(directory_), 0700U);
  EXPECT_EQ(modeOf(directory_.parent_path()), 0700U);
  EXPECT_EQ(modeOf(directory_ / "file.json"), 0600U);
}

TEST_F(Storage, whichever_call_fails_the_old_content_stays_and_no_temporary_file_does) {
  ASSERT_EQ(storage_.write(notify, "file.json"), std::error_code());
  const std::error_code failures[] = {fakes::FailingFileSystem::failure(), SharedStorageError::writeFailed,
                                      SharedStorageError::writeFailed};
  for (int call = 1; call <= 3; ++call) {
    files_.failCall(call);
    EXPECT_EQ(storage_.write(PendingNotify{}, "file.json"), failures[call - 1]) << call;
    files_.failCall(0);
    EXPECT_EQ(storage_.read<PendingNotify>("file.json"), notify) << call;
    EXPECT_THAT(names(), ElementsAre("file.json")) << call;
  }
}

TEST_F(Storage, without_a_container_everything_fails_alike_and_with_one_that_cannot_be_made_as_the_file_system_does) {
  const fakes::FixedContainer none(std::nullopt);
  const SharedStorage storage(none, files_, random_);
  EXPECT_FALSE(storage.containerAvailable());
  EXPECT_EQ(storage.write(notify, "file.json"), SharedStorageError::appGroupUnavailable);
  EXPECT_EQ(storage.read<PendingNotify>("file.json").error(), SharedStorageError::appGroupUnavailable);
  tree_.add("data", "a file in the way");
  EXPECT_EQ(storage_.write(notify, "file.json"), std::make_error_condition(std::errc::not_a_directory));
}

TEST_F(Storage, whatever_is_no_file_of_ours_reads_as_corrupt_and_never_waits) {
  const std::string place = "data/group/file.json";
  EXPECT_EQ(readError(), SharedStorageError::decodingFailed) << "missing";
  tree_.add(place, "{}");
  EXPECT_EQ(readError(), SharedStorageError::decodingFailed) << "nothing in it";
  const std::string whole = *encodeRecord(notify);
  tree_.add(place, whole + std::string((std::size_t{1024} * 1024) - whole.size(), ' '));
  EXPECT_TRUE(storage_.read<PendingNotify>("file.json").has_value()) << "as large as may be";
  tree_.add(place, whole + std::string((std::size_t{1024} * 1024) - whole.size() + 1, ' '));
  EXPECT_EQ(readError(), SharedStorageError::decodingFailed) << "too large";
  std::filesystem::remove(directory_ / "file.json");
  tree_.fifo(place);
  EXPECT_EQ(readError(), SharedStorageError::decodingFailed) << "a fifo";
  std::filesystem::remove(directory_ / "file.json");
  tree_.add("elsewhere.json", whole);
  tree_.link(place, (tree_.root() / "elsewhere.json").string());
  EXPECT_EQ(readError(), SharedStorageError::decodingFailed) << "a link";
  EXPECT_EQ(storage_.write(notify, "file.json"), std::error_code()) << "a write replaces the link";
  EXPECT_EQ(real_.read(tree_.root() / "elsewhere.json"), whole);
  constexpr uid_t somebodyElse = 4711;
  if (::chown((directory_ / "file.json").c_str(), somebodyElse, somebodyElse) == 0) {  // as root only
    EXPECT_EQ(readError(), SharedStorageError::decodingFailed) << "another user's";
  }
  std::filesystem::remove(directory_ / "file.json");
  std::filesystem::create_directory(directory_ / "file.json");
  EXPECT_EQ(readError(), SharedStorageError::decodingFailed) << "a directory";
  EXPECT_EQ(storage_.write(notify, "file.json"), SharedStorageError::writeFailed);
  EXPECT_THAT(names(), ElementsAre("file.json"));
}

}  // namespace
}  // namespace quibbly
