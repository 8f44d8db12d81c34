#include "platform/linux/sqlite_preference_store.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <future>
#include <sys/stat.h>
#include <system_error>
#include <utility>

#include <sqlite3.h>

#include "platform/linux/file_descriptor.h"
#include "platform/linux/ownership.h"
#include "platform/linux/posix_file_system.h"

namespace quibbly::linux_services {
namespace {

struct CloseDatabase {
  void operator()(sqlite3* database) const { sqlite3_close(database); }
};
using Handle = std::unique_ptr<sqlite3, CloseDatabase>;
struct FinalizeStatement {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

constexpr const char* schema =
    "PRAGMA journal_mode = WAL;"
    "PRAGMA synchronous = NORMAL;"
    "CREATE TABLE IF NOT EXISTS preferences (key TEXT NOT NULL PRIMARY KEY, value) WITHOUT ROWID;";

/// Moves the log into the database, and begins the next log: the first write after the move flushes to the disk, so it is
/// one that nobody waits for, unless somebody's commit comes just between the two.
constexpr const char* startNewLog =
    "PRAGMA wal_checkpoint;"
    "PRAGMA user_version = 0;";

constexpr int longLogPages = 1000;

/// Whether it is a plain file of the user's own. It is not opened for that: closing it again would drop the locks that this
/// process has on it by other connections.
bool isOurs(const std::filesystem::path& file) {
  struct stat status{};
  return ::lstat(file.c_str(), &status) == 0 && isOwn(status, S_IFREG);
}

/// SQLite would make the file readable for everybody that the user's mask lets in; the files beside it take its mode.
bool makeFile(const std::filesystem::path& file) {
  constexpr mode_t forTheUserAlone = 0600;
  if (PosixFileSystem().createDirectories(file.parent_path())) return false;
  const FileDescriptor made(::open(file.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, forTheUserAlone));
  return made || (errno == EEXIST && isOurs(file));
}

std::unexpected<std::error_code> unreadable() { return std::unexpected(std::make_error_code(std::errc::io_error)); }

/// Null when the file cannot be opened, or is a link. Links on the way to it, such as one to a home on another volume, are
/// followed here: SQLite would refuse them too.
Handle openHandle(const std::filesystem::path& file, std::chrono::milliseconds patience) {
  std::error_code error;
  const std::filesystem::path directory = std::filesystem::canonical(file.parent_path(), error);
  if (error) return nullptr;
  sqlite3* opened = nullptr;
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOFOLLOW | SQLITE_OPEN_NOMUTEX;
  const int status = sqlite3_open_v2((directory / file.filename()).c_str(), &opened, flags, nullptr);
  Handle handle(opened);
  if (status != SQLITE_OK) return nullptr;
  sqlite3_busy_timeout(opened, static_cast<int>(patience.count()));
  // The log stays for the next to open the store: whoever closes it would have to wait for the disk.
  sqlite3_db_config(opened, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
  return handle;
}

bool run(sqlite3* database, const char* sql) {
  return sqlite3_exec(database, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

void bind(sqlite3_stmt* statement, int place, std::int64_t value) { sqlite3_bind_int64(statement, place, value); }
void bind(sqlite3_stmt* statement, int place, double value) { sqlite3_bind_double(statement, place, value); }
void bind(sqlite3_stmt* statement, int place, std::string_view value) {
  sqlite3_bind_text64(statement, place, value.data(), value.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}
void bind(sqlite3_stmt* statement, int place, const Bytes& value) {
  // A null pointer would bind NULL, even with a length of 0.
  const void* const data = value.empty() ? static_cast<const void*>("") : value.data();
  sqlite3_bind_blob64(statement, place, data, value.size(), SQLITE_TRANSIENT);
}

std::optional<PreferenceValue> columnValue(sqlite3_stmt* statement, int column) {
  switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER:
      return std::int64_t{sqlite3_column_int64(statement, column)};
    case SQLITE_FLOAT:
      return sqlite3_column_double(statement, column);
    case SQLITE_TEXT:
    case SQLITE_BLOB: {
      const bool isText = sqlite3_column_type(statement, column) == SQLITE_TEXT;
      const void* const data = sqlite3_column_blob(statement, column);
      const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
      if (isText) return std::string(static_cast<const char*>(data), size);
      Bytes bytes(size);
      if (size > 0) std::memcpy(bytes.data(), data, size);
      return bytes;
    }
    default:
      return std::nullopt;
  }
}

}  // namespace

/// An open database with its statements.
class SqlitePreferenceStore::Database {
 public:
  /// Null when the file cannot be made or opened, or is no database.
  static std::unique_ptr<Database> openAt(const std::filesystem::path& file, std::chrono::milliseconds patience) {
    if (!makeFile(file)) return nullptr;
    auto database = std::make_unique<Database>();
    database->file_ = file;
    database->patience_ = patience;
    database->handle_ = openHandle(file, patience);
    return database->handle_ && database->prepareAll() ? std::move(database) : nullptr;
  }

  Reading read(std::string_view key) {
    bind(find_.get(), 1, key);
    const int status = sqlite3_step(find_.get());
    Reading found;
    if (status == SQLITE_ROW) {
      found = columnValue(find_.get(), 0);
    } else if (status != SQLITE_DONE) {
      found = unreadable();
    }
    sqlite3_reset(find_.get());
    return found;
  }

  Listing all() {
    std::map<std::string, PreferenceValue> values;
    int status = SQLITE_ROW;
    while ((status = sqlite3_step(list_.get())) == SQLITE_ROW) {
      const auto key = columnValue(list_.get(), 0);
      auto value = columnValue(list_.get(), 1);
      // Another program may have stored a key that is no text; nobody can ask for it here.
      const auto* const name = key ? std::get_if<std::string>(&*key) : nullptr;
      if (name != nullptr && value) values.emplace(*name, std::move(*value));
    }
    sqlite3_reset(list_.get());
    if (status != SQLITE_DONE) return unreadable();
    return values;
  }

  bool apply(std::span<const PreferenceChange> changes) {
    // Locked for writing from the start: a transaction that turns into a writer halfway may fail without being waited for.
    if (!run("BEGIN IMMEDIATE")) return false;
    for (const PreferenceChange& change : changes) {
      if (!applyOne(change)) return undone();
    }
    return run("COMMIT") || undone();
  }

 private:
  bool prepareAll() {
    if (!run(schema)) return false;
    sqlite3_wal_hook(handle_.get(), &Database::afterCommit, this);
    find_ = prepared("SELECT value FROM preferences WHERE key = ?1");
    list_ = prepared("SELECT key, value FROM preferences ORDER BY key");
    put_ = prepared("INSERT INTO preferences VALUES (?1, ?2) ON CONFLICT (key) DO UPDATE SET value = ?2");
    remove_ = prepared("DELETE FROM preferences WHERE key = ?1");
    return find_ && list_ && put_ && remove_;
  }

  bool run(const char* sql) { return linux_services::run(handle_.get(), sql); }

  /// SQLite would move a long log within the commit that finds it long, and flush the disk for that.
  static int afterCommit(void* self, sqlite3*, const char*, int logPages) {
    if (logPages >= longLogPages) static_cast<Database*>(self)->shortenLog();
    return SQLITE_OK;
  }

  /// On a thread and a connection of its own.
  void shortenLog() {
    if (shortening_.valid() && shortening_.wait_for(std::chrono::seconds(0)) != std::future_status::ready) return;
    try {
      shortening_ = std::async(std::launch::async, [file = file_, patience = patience_] {
        if (const Handle handle = openHandle(file, patience)) linux_services::run(handle.get(), startNewLog);
      });
    } catch (const std::system_error&) {
      // No thread can be had now. The log is as good long, and the next commit tries again.
      shortening_ = {};
    }
  }

  /// Takes the transaction back; what cannot be taken back is dropped with the connection.
  bool undone() {
    run("ROLLBACK");
    return false;
  }

  Statement prepared(const char* sql) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v3(handle_.get(), sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    return Statement(statement);
  }

  bool applyOne(const PreferenceChange& change) {
    sqlite3_stmt* const statement = change.value ? put_.get() : remove_.get();
    bind(statement, 1, std::string_view(change.key));
    if (change.value) std::visit([&](const auto& value) { bind(statement, 2, value); }, *change.value);
    const bool done = sqlite3_step(statement) == SQLITE_DONE;
    sqlite3_reset(statement);
    return done;
  }

  // First, so that it is closed after its statements are gone.
  Handle handle_;
  Statement find_;
  Statement list_;
  Statement put_;
  Statement remove_;
  std::filesystem::path file_;
  std::chrono::milliseconds patience_{};
  std::future<void> shortening_;  // last: it is waited for before the rest goes
};

SqlitePreferenceStore::SqlitePreferenceStore(std::filesystem::path file, std::chrono::milliseconds patience)
    : file_(std::move(file)), patience_(patience) {}
SqlitePreferenceStore::~SqlitePreferenceStore() = default;

bool SqlitePreferenceStore::open() {
  if (!database_) database_ = Database::openAt(file_, patience_);
  return database_ != nullptr;
}

PreferenceStore::Reading SqlitePreferenceStore::read(std::string_view key) {
  if (!open()) return unreadable();
  return database_->read(key);
}

PreferenceStore::Listing SqlitePreferenceStore::all() {
  if (!open()) return unreadable();
  return database_->all();
}

std::error_code SqlitePreferenceStore::apply(std::span<const PreferenceChange> changes) {
  const bool applied = open() && database_->apply(changes);
  return applied ? std::error_code() : std::make_error_code(std::errc::io_error);
}

}  // namespace quibbly::linux_services
