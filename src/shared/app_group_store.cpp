#include "shared/app_group_store.h"

#include <array>
#include <cstddef>
#include <span>
#include <utility>
#include <vector>

#include "records/units.h"
#include "shared/container_files.h"
#include "shared/epoch_seconds.h"
#include "shared/uuid.h"
#include "shared/widget_generation.h"

namespace quibbly {
namespace {

constexpr std::string_view widgetGenerationFile = "widgetGeneration.json";
constexpr std::string_view currentRoastFile = "currentRoast.txt";
constexpr std::string_view lastRoastKey = "lastRoastData";
constexpr std::string_view widgetSnapshotKey = "widgetSnapshotData";

/// Publishing carries on with what is left when one thing cannot be written.
void ignoring(const std::error_code& /*failure*/) {}

std::string rawText(auto value) { return std::string(rawValue(value)); }

Bytes bytesOf(std::string_view text) {
  const auto bytes = std::as_bytes(std::span(text));
  return {bytes.begin(), bytes.end()};
}

std::string textOf(const Bytes& bytes) {
  std::string text(bytes.size(), '\0');
  for (std::size_t i = 0; i < bytes.size(); ++i) text[i] = static_cast<char>(bytes[i]);
  return text;
}

std::optional<PreferenceValue> batteryValue(const WidgetSnapshot& snapshot) {
  if (!snapshot.batteryLevel) return std::nullopt;
  return *snapshot.batteryLevel;
}

/// A record that cannot be encoded leaves its key as it was.
template <typename Record>
void addEncoded(std::vector<PreferenceChange>& changes, std::string_view key, const Record& record) {
  if (const auto text = encodeRecord(record)) changes.push_back({std::string(key), bytesOf(*text)});
}

std::vector<PreferenceChange> changesFor(const LastRoast& roast, const WidgetSnapshot& snapshot,
                                         const std::string& token, Date generatedAt) {
  std::vector<PreferenceChange> changes{
      {"roastText", roast.text},
      {"roastCategory", roast.category},
      {"roastMood", rawText(roast.mood.label)},
      {"roastAt", epochSeconds(roast.createdAt)},
      {"roastTemplateId", roast.templateId.value_or("")},
      {"ram", snapshot.memoryUtilizationEstimate},
      {"apps", snapshot.runningAppCount},
      {"uptime", snapshot.uptimeSeconds},
      {"thermal", rawText(snapshot.thermalState)},
      {"battery", batteryValue(snapshot)},
      {"snapAt", epochSeconds(snapshot.capturedAt)},
      {"generationToken", token},
      {"generationAt", epochSeconds(generatedAt)},
  };
  addEncoded(changes, lastRoastKey, roast);
  addEncoded(changes, widgetSnapshotKey, snapshot);
  return changes;
}

/// Whole days; absent for an uptime that no integer of days holds.
std::optional<std::int64_t> daysOf(std::optional<double> uptimeSeconds) {
  constexpr double mostSeconds = secondsPerDay * 0x1p62;
  if (!uptimeSeconds || !(*uptimeSeconds > -mostSeconds && *uptimeSeconds < mostSeconds)) return std::nullopt;
  return wholeDays(*uptimeSeconds);
}

}  // namespace

void AppGroupStore::publish(const LastRoast& roast, const WidgetSnapshot& snapshot) {
  const std::string token = freshUuid(random_);
  // A store that takes nothing is as good as none: the text file would carry a token that the store does not know.
  if (!preferences_.open() || preferences_.apply(changesFor(roast, snapshot, token, clock_.now()))) {
    ignoring(storage_.write(roast, container_files::lastRoast));
    ignoring(storage_.write(snapshot, container_files::widgetSnapshot));
    return;
  }
  preferences_.synchronize();
  ignoring(storage_.writeText(token + "\n" + rawText(roast.mood.label) + "\n" + roast.text, currentRoastFile));
  ignoring(storage_.write(roast, container_files::lastRoast));
  ignoring(storage_.write(snapshot, container_files::widgetSnapshot));
  constexpr std::size_t previewLength = 80;
  const WidgetGeneration generation{.token = freshUuid(random_),
                                    .updatedAt = clock_.now(),
                                    .roastPreview = userText_.firstCharacters(roast.text, previewLength)};
  ignoring(storage_.write(generation, widgetGenerationFile));
}

void AppGroupStore::publishSnapshot(const WidgetSnapshot& snapshot, PreferenceStore& otherwise) {
  ignoring(storage_.write(snapshot, container_files::widgetSnapshot));
  const auto text = encodeRecord(snapshot);
  if (!text) return;
  const std::string key(widgetSnapshotKey);
  if (preferences_.open() && !preferences_.set(key, bytesOf(*text))) {
    preferences_.synchronize();
  } else {
    ignoring(otherwise.set(key, bytesOf(*text)));
    otherwise.synchronize();
  }
}

std::optional<LastRoast> AppGroupStore::lastRoast() {
  return published<LastRoast>(lastRoastKey, container_files::lastRoast);
}

std::optional<WidgetSnapshot> AppGroupStore::widgetSnapshot() {
  return published<WidgetSnapshot>(widgetSnapshotKey, container_files::widgetSnapshot);
}

template <typename Record>
std::optional<Record> AppGroupStore::published(std::string_view key, std::string_view fileName) {
  if (const auto bytes = preferences_.get<Bytes>(key)) {
    if (auto record = decodeRecord<Record>(textOf(*bytes))) return std::move(*record);
  }
  auto record = storage_.read<Record>(fileName);
  if (!record) return std::nullopt;
  return std::move(*record);
}

std::optional<AppGroupStore::WidgetPayload> AppGroupStore::widgetPayload() {
  if (auto payload = payloadFromPreferences()) return payload;
  if (auto payload = payloadFromText()) return payload;
  return payloadFromFiles();
}

std::optional<AppGroupStore::WidgetPayload> AppGroupStore::payloadFromPreferences() {
  if (!preferences_.open()) return std::nullopt;
  preferences_.synchronize();
  const std::string text = preferredText("roastText").value_or("");
  if (text.empty()) return std::nullopt;
  const double madeAt = preferences_.get<double>("roastAt").value_or(0);
  const auto createdAt = madeAt > 0 ? dateFromEpochSeconds(madeAt) : std::nullopt;
  const auto token = preferredText("generationToken");
  return WidgetPayload{.text = text,
                       .category = preferredText("roastCategory").value_or(""),
                       .mood = preferredText("roastMood").value_or(""),
                       .createdAt = createdAt.value_or(clock_.now()),
                       .ram = preferences_.get<double>("ram"),
                       .apps = preferences_.get<std::int64_t>("apps"),
                       .uptimeDays = daysOf(preferences_.get<double>("uptime")),
                       .thermal = preferredText("thermal"),
                       .battery = preferences_.get<std::int64_t>("battery"),
                       .generation = token ? *token : freshUuid(random_)};
}

/// What is no UTF-8 is as good as a value of another type: the next copy may be whole.
std::optional<std::string> AppGroupStore::preferredText(std::string_view key) {
  auto text = preferences_.get<std::string>(key);
  return text && userText_.isUtf8(*text) ? std::move(text) : std::nullopt;
}

std::optional<AppGroupStore::WidgetPayload> AppGroupStore::payloadFromText() const {
  const auto content = storage_.readText(currentRoastFile);
  if (!content || !userText_.isUtf8(*content)) return std::nullopt;
  const std::size_t tokenEnd = content->find('\n');
  if (tokenEnd == std::string::npos) return std::nullopt;
  const std::size_t labelEnd = content->find('\n', tokenEnd + 1);
  // What follows the label is the roast, line feeds and all; without any of it there is nothing to show.
  if (labelEnd == std::string::npos || labelEnd + 1 == content->size()) return std::nullopt;
  WidgetPayload payload;
  payload.text = content->substr(labelEnd + 1);
  payload.mood = content->substr(tokenEnd + 1, labelEnd - tokenEnd - 1);
  payload.createdAt = clock_.now();
  payload.generation = content->substr(0, tokenEnd);
  return payload;
}

std::optional<AppGroupStore::WidgetPayload> AppGroupStore::payloadFromFiles() const {
  const auto roast = storage_.read<LastRoast>(container_files::lastRoast);
  // Nobody publishes an empty roast, and a widget has nothing to show for it.
  if (!roast || roast->text.empty()) return std::nullopt;
  WidgetPayload payload;
  payload.text = roast->text;
  payload.category = roast->category;
  payload.mood = rawText(roast->mood.label);
  payload.createdAt = roast->createdAt;
  if (const auto snapshot = storage_.read<WidgetSnapshot>(container_files::widgetSnapshot)) {
    payload.ram = snapshot->memoryUtilizationEstimate;
    payload.apps = snapshot->runningAppCount;
    payload.uptimeDays = daysOf(snapshot->uptimeSeconds);
    payload.thermal = rawText(snapshot->thermalState);
    payload.battery = snapshot->batteryLevel;
  }
  const auto generation = storage_.read<WidgetGeneration>(widgetGenerationFile);
  payload.generation = generation ? generation->token : shortestText(epochSeconds(roast->createdAt));
  return payload;
}

}  // namespace quibbly
