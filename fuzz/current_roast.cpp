#include <span>

#include "fakes/fixed_clock.h"
#include "fakes/fixed_container.h"
#include "fakes/memory_preference_store.h"
#include "fakes/scripted_random.h"
#include "fuzz/fuzzer.h"
#include "fuzz/memory_files.h"
#include "platform/linux/icu_user_text.h"
#include "shared/app_group_store.h"
#include "shared/pending_notify_queue.h"
#include "shared/recent_roasts.h"

/// What widgets read of the group's container and preferences, all of which others may have written: the text file, the
/// JSON files, the keys.
namespace quibbly::fuzz {
namespace {

struct Published {
  fakes::FixedClock clock;
  fakes::FixedContainer container{"/group"};
  fakes::MemoryPreferenceStore preferences;
  fakes::ScriptedRandom random;
  MemoryFiles files;
  linux_services::IcuUserText userText;
  SharedStorage storage{container, files, random};
  AppGroupStore store{storage, preferences, clock, random, userText};

  /// An empty one is not there.
  void put(std::string_view file, std::string_view content) const {
    if (!content.empty()) demand(!storage.writeText(content, file), "a file can be written");
  }
  void set(const char* key, PreferenceValue value) {
    demand(!preferences.set(key, std::move(value)), "a preference can be set");
  }
};

void check(const AppGroupStore::WidgetPayload& payload, const UserText& userText) {
  demand(!payload.text.empty(), "a payload has a text");
  for (const auto& text : {payload.text, payload.category, payload.mood, payload.generation}) {
    demand(userText.isUtf8(text), "a payload is UTF-8");
  }
  demand(userText.isUtf8(payload.thermal.value_or("")), "a thermal state is UTF-8");
}

void checkMailbox(const Published& published, MemoryFiles& files) {
  const Mailbox<PendingNotify> box(published.storage, files, PendingNotifyQueue::fileName);
  const bool wasEmpty = box.isEmpty();
  const auto taken = box.take();
  demand(!taken || !wasEmpty, "an empty box holds no entry");
  demand(box.isEmpty() == (wasEmpty || taken), "an entry is gone once it is taken, and stays when it cannot be read");
}

}  // namespace

void tryInput(std::string_view input) {
  const auto parts = partsOf(input, 9);
  Published published;
  published.put("currentRoast.txt", parts[0]);
  published.put("lastRoast.json", parts[1]);
  published.put("widgetSnapshot.json", parts[2]);
  published.put("widgetGeneration.json", parts[3]);
  published.put("recentRoasts.json", parts[4]);
  published.put(PendingNotifyQueue::fileName, parts[4]);
  for (const char* key : {"roastText", "roastCategory", "generationToken"}) published.set(key, std::string(parts[5]));
  for (const char* key : {"roastMood", "thermal"}) published.set(key, std::string(parts[6]));
  published.set("roastAt", numberIn(parts[7]));
  published.set("uptime", numberIn(parts[8]));
  const auto bytes = std::as_bytes(std::span(parts[8]));
  for (const char* key : {"lastRoastData", "widgetSnapshotData"}) published.set(key, Bytes(bytes.begin(), bytes.end()));

  const auto payload = published.store.widgetPayload();
  if (payload) check(*payload, published.userText);
  const auto roast = published.store.lastRoast();
  const auto snapshot = published.store.widgetSnapshot();
  if (roast && snapshot) {
    published.store.publish(*roast, *snapshot);
    demand(published.store.lastRoast() == roast, "what was published is what is read");
    demand(published.store.widgetSnapshot() == snapshot, "the figures that were published are those that are read");
  }
  const RecentRoasts recent(published.storage);
  const auto history = recent.history();
  recent.remember(history);
  demand(recent.history() == history, "what is remembered is what is read");
  checkMailbox(published, published.files);
}

}  // namespace quibbly::fuzz
