// What every preference store must do, on the one in memory and on the one on SQLite; then what only files can suffer.

#include <chrono>
#include <csignal>
#include <limits>
#include <memory>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include "fakes/file_tree.h"
#include "fakes/memory_preference_store.h"
#include "platform/linux/sqlite_preference_store.h"

namespace quibbly::linux_services {
namespace {

using ::testing::IsEmpty;
using ::testing::Pair;
using ::testing::UnorderedElementsAre;
using namespace std::chrono_literals;

using MakeStore = std::unique_ptr<PreferenceStore> (*)(const std::filesystem::path& file);

class PreferenceStoreContract : public ::testing::TestWithParam<MakeStore> {
 protected:
  fakes::FileTree tree_;
  std::unique_ptr<PreferenceStore> store_ = GetParam()(tree_.root() / "config/quibbly/store.db");
};

TEST_P(PreferenceStoreContract, values_come_back_as_they_were_and_only_as_what_they_are) {
  const PreferenceValue values[] = {std::int64_t{0},
                                    std::numeric_limits<std::int64_t>::min(),
                                    0.1,
                                    -0.0,
                                    std::numeric_limits<double>::infinity(),
                                    std::string(),
                                    std::string("“ö”\0x", 9),
                                    Bytes{},
                                    Bytes{std::byte{0}, std::byte{255}},
                                    std::string("7"),
                                    7.0};
  for (const PreferenceValue& value : values) {
    ASSERT_EQ(store_->set("key", value), std::error_code());
    EXPECT_EQ(store_->value("key"), value) << value.index();
    EXPECT_EQ(store_->get<std::int64_t>("key").has_value(), value.index() == 0);
    EXPECT_EQ(store_->get<double>("key").has_value(), value.index() == 1);
    EXPECT_EQ(store_->get<std::string>("key").has_value(), value.index() == 2);
    EXPECT_EQ(store_->get<Bytes>("key").has_value(), value.index() == 3);
  }
}

TEST_P(PreferenceStoreContract, a_change_sets_and_removes_in_order) {
  ASSERT_EQ(store_->set("old", std::int64_t{1}), std::error_code());
  const PreferenceChange changes[] = {{.key = "old", .value = std::nullopt},
                                      {.key = "a", .value = std::int64_t{1}},
                                      {.key = "a", .value = 2.0},
                                      {.key = "never", .value = std::nullopt}};
  ASSERT_EQ(store_->apply(changes), std::error_code());
  EXPECT_THAT(*store_->all(), UnorderedElementsAre(Pair("a", PreferenceValue(2.0))));
  ASSERT_EQ(store_->remove("a"), std::error_code());
  ASSERT_EQ(store_->set("nan", std::numeric_limits<double>::quiet_NaN()), std::error_code());
  EXPECT_FALSE(store_->contains("nan")) << "a number that is none";
  EXPECT_THAT(*store_->all(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Stores, PreferenceStoreContract,
    ::testing::Values(MakeStore{[](const std::filesystem::path&) -> std::unique_ptr<PreferenceStore> {
                        return std::make_unique<fakes::MemoryPreferenceStore>();
                      }},
                      MakeStore{[](const std::filesystem::path& file) -> std::unique_ptr<PreferenceStore> {
                        return std::make_unique<SqlitePreferenceStore>(file);
                      }}));

class SqliteStore : public ::testing::Test {
 protected:
  fakes::FileTree tree_;
  std::filesystem::path file_ = tree_.root() / "quibbly/store.db";
};

TEST_F(SqliteStore, is_shared_by_its_openers_and_is_the_users_own) {
  ::umask(0);
  SqlitePreferenceStore one(file_);
  SqlitePreferenceStore other(file_);
  ASSERT_EQ(one.set("key", std::int64_t{1}), std::error_code());
  EXPECT_EQ(other.get<std::int64_t>("key"), 1);
  ASSERT_EQ(other.set("key", std::int64_t{2}), std::error_code());
  EXPECT_EQ(one.get<std::int64_t>("key"), 2);
  for (const auto& entry : std::filesystem::directory_iterator(file_.parent_path())) {
    EXPECT_EQ(entry.status().permissions(), std::filesystem::perms(0600)) << entry;
  }
  EXPECT_EQ(std::filesystem::status(file_.parent_path()).permissions(), std::filesystem::perms(0700));
}

TEST_F(SqliteStore, leaves_out_a_key_that_another_program_stored_as_no_text_and_outlasts_its_lock) {
  SqlitePreferenceStore store(file_, 10ms);
  ASSERT_EQ(store.set("key", std::int64_t{1}), std::error_code());
  sqlite3* other = nullptr;
  sqlite3_open(file_.c_str(), &other);
  EXPECT_EQ(sqlite3_exec(other, "INSERT INTO preferences VALUES (x'01', 1)", nullptr, nullptr, nullptr), SQLITE_OK);
  EXPECT_EQ(store.all()->size(), 1U);
  sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr);
  EXPECT_TRUE(store.set("key", std::int64_t{2}));
  EXPECT_EQ(store.get<std::int64_t>("key"), 1);
  sqlite3_close(other);
  EXPECT_FALSE(store.set("key", std::int64_t{3}));
  EXPECT_EQ(store.get<std::int64_t>("key"), 3);
}

TEST_F(SqliteStore, that_may_not_be_written_or_has_no_room_takes_nothing_and_loses_nothing) {
  ASSERT_EQ(SqlitePreferenceStore(file_).set("key", std::int64_t{1}), std::error_code());
  const auto inChild = [this](auto limit) {
    const pid_t child = ::fork();
    if (child == 0) {
      limit();
      SqlitePreferenceStore store(file_);
      const bool took = !store.set("key", std::int64_t{2}) || !store.set("other", std::string(100'000, 'x'));
      ::_exit(took || store.value("key").value_or(1) != PreferenceValue(std::int64_t{1}) ? 1 : 0);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    return status;
  };
  EXPECT_EQ(inChild([] {
              (void)std::signal(SIGXFSZ, SIG_IGN);
              const rlimit nothing{};
              ::setrlimit(RLIMIT_FSIZE, &nothing);
            }),
            0);
  ::chmod(tree_.root().c_str(), 0755);
  ::chmod(file_.parent_path().c_str(), 0555);
  ::chmod(file_.c_str(), 0444);
  EXPECT_EQ(inChild([] {
              constexpr uid_t nobody = 65534;  // root may write anything
              if (::geteuid() == 0) (void)::setuid(nobody);
            }),
            0);
  ::chmod(file_.parent_path().c_str(), 0755);
  ::chmod(file_.c_str(), 0644);
  SqlitePreferenceStore store(file_);
  EXPECT_EQ(store.get<std::int64_t>("key"), 1);
  EXPECT_EQ(store.set("key", std::int64_t{3}), std::error_code());
}

TEST_F(SqliteStore, whose_file_cannot_be_read_says_so_and_not_that_the_key_is_missing) {
  SqlitePreferenceStore store(file_);
  ASSERT_EQ(store.set("key", std::int64_t{1}), std::error_code());
  EXPECT_EQ(store.read("missing"), std::nullopt);
  ASSERT_EQ(SqlitePreferenceStore(file_).set("key", std::int64_t{2}), std::error_code());
  std::filesystem::resize_file(file_.string() + "-wal", 0);
  EXPECT_FALSE(store.read("key"));
  EXPECT_FALSE(store.all());
  EXPECT_FALSE(SqlitePreferenceStore(tree_.root()).read("key")) << "a directory";
}

TEST_F(SqliteStore, moves_a_long_log_into_the_database_without_being_asked) {
  SqlitePreferenceStore store(file_);
  ASSERT_TRUE(store.open());
  const auto empty = std::filesystem::file_size(file_);
  char letter = 'a';
  for (const auto end = std::chrono::steady_clock::now() + 30s; std::chrono::steady_clock::now() < end;) {
    ASSERT_EQ(store.set("key", std::string(20'000, letter ^= 1)), std::error_code());
    if (std::filesystem::file_size(file_) > empty) return;
  }
  ADD_FAILURE() << "the log is " << std::filesystem::file_size(file_.string() + "-wal") << " bytes long";
}

TEST_F(SqliteStore, where_no_database_can_be_is_unavailable_leaves_all_as_it_is_and_never_waits) {
  const std::string garbage(5000, 'x');
  tree_.add("quibbly/store.db", garbage);
  SqlitePreferenceStore store(file_);
  EXPECT_FALSE(store.open());
  EXPECT_TRUE(store.set("key", std::int64_t{1}));
  EXPECT_EQ(store.value("key"), std::nullopt);
  EXPECT_EQ(fakes::contentOf(file_), garbage);
  tree_.fifo("fifo");
  tree_.add("file", "");
  tree_.link("link.db", (tree_.root() / "target.db").string());
  for (const char* place : {"fifo", "file/store.db", "link.db"}) {
    EXPECT_FALSE(SqlitePreferenceStore(tree_.root() / place).open()) << place;
  }
  EXPECT_FALSE(std::filesystem::exists(tree_.root() / "target.db"));
  tree_.add("foreign.db", "");
  std::filesystem::create_directory(tree_.root() / "foreign");
  for (const auto& [foreign, file] : {std::pair{"foreign.db", "foreign.db"}, {"foreign", "foreign/store.db"}}) {
    if (::chown((tree_.root() / foreign).c_str(), 65534, 65534) != 0) break;  // as root only
    EXPECT_FALSE(SqlitePreferenceStore(tree_.root() / file).open()) << file;
  }
}

TEST_F(SqliteStore, may_be_reached_by_a_link_as_homes_on_another_volume_are) {
  std::filesystem::create_directories(tree_.root() / "volume/home");
  tree_.link("home", tree_.root() / "volume/home");
  EXPECT_EQ(SqlitePreferenceStore(tree_.root() / "home/quibbly/store.db").set("key", std::int64_t{1}),
            std::error_code());
  EXPECT_EQ(SqlitePreferenceStore(tree_.root() / "volume/home/quibbly/store.db").get<std::int64_t>("key"), 1);
}

}  // namespace
}  // namespace quibbly::linux_services
