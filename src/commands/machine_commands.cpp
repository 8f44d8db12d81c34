#include "commands/machine_commands.h"

#include <chrono>
#include <thread>

#include "commands/sample_text.h"
#include "monitor/mood_calculator.h"
#include "shared/json_coding.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;

/// Long enough for the kernel's hundredths of a second to add up to a load, short enough not to be waited for.
constexpr auto betweenSamples = 250ms;

SystemSnapshot measuredSample(SystemMonitor& monitor) {
  (void)monitor.captureSnapshot().get();
  std::this_thread::sleep_for(betweenSamples);
  return monitor.captureSnapshot().get();
}

/// One object: the sample under the names of its fields, and the mood.
nlohmann::json sampleJson(const SystemSnapshot& snapshot, const MacMood& mood) {
  nlohmann::json object = toJson(snapshot);
  object["mood"] = toJson(mood);
  return object;
}

std::string line(const nlohmann::json& object) {
  // Every double of a sample is made finite by the monitor.
  return jsonText(object).value() + "\n";
}

}  // namespace

std::string MachineCommands::run(const CommandLine& request) {
  const SystemSnapshot snapshot = measuredSample(monitor_);
  const MacMood mood = MoodCalculator::score(snapshot);
  if (request.command == CommandLine::Command::sample) {
    return request.json ? line(sampleJson(snapshot, mood)) : sampleText(snapshot, mood);
  }
  const RecentRoastHistory history = recentRoasts_.history();
  const LastRoast roast = engine_.roast(snapshot, mood, history);
  recentRoasts_.remember(history.recording(roast.text, roast.templateId));
  return request.json ? line(toJson(roast)) : roast.text + "\n";
}

}  // namespace quibbly
