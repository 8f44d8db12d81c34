#include "records/recent_roast_history.h"

namespace quibbly {
namespace {

void putInFront(std::vector<std::string>& entries, const std::string& entry) {
  entries.insert(entries.begin(), entry);
  if (entries.size() > RecentRoastHistory::limit) entries.resize(RecentRoastHistory::limit);
}

}  // namespace

RecentRoastHistory RecentRoastHistory::recording(const std::string& text,
                                                 const std::optional<std::string>& templateId) const {
  RecentRoastHistory updated = *this;
  putInFront(updated.texts, text);
  if (templateId) putInFront(updated.templateIds, *templateId);
  return updated;
}

}  // namespace quibbly
