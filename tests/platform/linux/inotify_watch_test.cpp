#include "platform/linux/inotify_watch.h"

#include <gtest/gtest.h>

#include "fakes/file_tree.h"
#include "fakes/manual_queue.h"

namespace quibbly::linux_services {
namespace {

class Watch : public ::testing::Test {
 protected:
  Watch() {
    watch_.begin(tree_.root() / "box", {"letter", "parcel"}, [this] { ++told_; });
  }
  int toldOf(const std::function<void()>& happening) {
    told_ = 0;
    happening();
    queue_.run();
    return told_;
  }

  fakes::FileTree tree_;
  fakes::ManualQueue queue_;
  InotifyWatch watch_{queue_};
  int told_ = 0;
};

TEST_F(Watch, what_comes_is_told_by_its_name_however_it_comes) {
  tree_.add("box/other", "");
  ASSERT_TRUE(watch_.canTell());
  EXPECT_EQ(toldOf([&] { tree_.add("box/letter", "written"); }), 1);
  EXPECT_EQ(toldOf([&] { std::filesystem::rename(tree_.root() / "box/letter", tree_.root() / "box/parcel"); }), 1);
  EXPECT_EQ(toldOf([&] { std::filesystem::rename(tree_.root() / "box/parcel", tree_.root() / "elsewhere"); }), 0);
  EXPECT_EQ(toldOf([&] { std::filesystem::create_symlink("nowhere", tree_.root() / "box/letter"); }), 1);
  EXPECT_EQ(toldOf([&] {
              for (int i = 0; i < 1000; ++i) tree_.add("box/letters" + std::to_string(i), "");
            }),
            0);
  watch_.end();
  EXPECT_EQ(toldOf([&] { tree_.add("box/parcel", ""); }), 0);
  EXPECT_FALSE(watch_.canTell());
}

TEST_F(Watch, a_directory_that_is_not_there_or_goes_is_watched_when_it_comes) {
  const std::filesystem::path box = tree_.root() / "box";
  EXPECT_FALSE(watch_.canTell());
  for (const auto& leave : {std::function([&] { std::filesystem::remove_all(box); }),
                            std::function([&] { std::filesystem::rename(box, tree_.root() / "moved"); })}) {
    tree_.add("box/other", "");
    ASSERT_TRUE(watch_.canTell());
    EXPECT_GE(toldOf(leave), 1);
    EXPECT_FALSE(watch_.canTell());
  }
  tree_.add("box", "a file");
  EXPECT_FALSE(watch_.canTell());
}

TEST_F(Watch, does_not_watch_what_is_not_known_to_be_local) {
  watch_.end();
  watch_.begin("/proc/self", {"letter"}, [] {});
  EXPECT_FALSE(watch_.canTell());
}

TEST_F(Watch, follows_the_name_of_its_directory_when_one_above_it_is_renamed) {
  tree_.add("home/box/other", "");
  watch_.end();
  watch_.begin(tree_.root() / "home/box", {"letter"}, [this] { ++told_; });
  ASSERT_TRUE(watch_.canTell());
  std::filesystem::rename(tree_.root() / "home", tree_.root() / "old home");
  EXPECT_FALSE(watch_.canTell());
  tree_.add("home/box/other", "");
  EXPECT_TRUE(watch_.canTell());
  EXPECT_EQ(toldOf([&] { tree_.add("home/box/letter", ""); }), 1);
}

}  // namespace
}  // namespace quibbly::linux_services
