#pragma once

#include <chrono>
#include <filesystem>
#include <memory>

#include "platform/preference_store.h"

namespace quibbly::linux_services {

/// A preference store in one SQLite table, which gives typed values, several processes at once, and a file that a killed
/// writer leaves whole. Values are told apart by SQLite's own types. A store that others keep locked is waited for
/// briefly, then counts as one that cannot be opened. A file that is no database is left as it is.
class SqlitePreferenceStore final : public PreferenceStore {
 public:
  /// Reads nothing yet. The directory is made, for the user alone, when the store is first opened.
  explicit SqlitePreferenceStore(std::filesystem::path file,
                                 std::chrono::milliseconds patience = std::chrono::milliseconds(250));
  SqlitePreferenceStore(const SqlitePreferenceStore&) = delete;
  SqlitePreferenceStore& operator=(const SqlitePreferenceStore&) = delete;
  ~SqlitePreferenceStore() override;

  [[nodiscard]] bool open() override;
  [[nodiscard]] Reading read(std::string_view key) override;
  [[nodiscard]] Listing all() override;
  [[nodiscard]] std::error_code apply(std::span<const PreferenceChange> changes) override;
  void synchronize() override {}  // every transaction is seen by all at once

 private:
  class Database;
  std::filesystem::path file_;
  std::chrono::milliseconds patience_;
  std::unique_ptr<Database> database_;
};

}  // namespace quibbly::linux_services
