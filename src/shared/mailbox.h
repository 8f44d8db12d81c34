#pragma once

#include <optional>
#include <string_view>

#include "platform/file_system.h"
#include "shared/shared_storage.h"

namespace quibbly {

/// A file of the shared container that holds one entry for whoever takes it. A new entry replaces an unread one. There is
/// no lock: an entry written between the reading and the deleting of a taker is lost with the one that was taken.
template <HasFields Record>
class Mailbox {
 public:
  Mailbox(const SharedStorage& storage, FileSystem& files, std::string_view fileName)
      : storage_(storage), files_(files), fileName_(fileName) {}

  /// Why the entry could not be left; the one before it then stays.
  [[nodiscard]] std::error_code put(const Record& entry) const { return storage_.write(entry, fileName_); }

  /// The entry, which is gone from the box then. Absent when there is none; an entry that cannot be read stays where it is
  /// until a writer replaces it, and one that cannot be deleted is taken again by the next call.
  [[nodiscard]] std::optional<Record> take() const {
    auto entry = storage_.read<Record>(fileName_);
    if (!entry) return std::nullopt;
    if (const auto& container = storage_.containerURL()) {
      [[maybe_unused]] const std::error_code stays = files_.remove(*container / fileName_);
    }
    return std::move(*entry);
  }

  /// Whether nothing is in the box, be it an entry that can be read or not.
  [[nodiscard]] bool isEmpty() const {
    const auto& container = storage_.containerURL();
    if (!container) return true;
    const auto text = files_.read(*container / fileName_);
    return !text && text.error() == std::errc::no_such_file_or_directory;
  }

 private:
  const SharedStorage& storage_;
  FileSystem& files_;
  std::string_view fileName_;
};

}  // namespace quibbly
