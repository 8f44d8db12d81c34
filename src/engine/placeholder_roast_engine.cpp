#include "engine/placeholder_roast_engine.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <random>

#include "engine/template_values.h"

namespace quibbly {
namespace {

constexpr std::size_t roomForCandidates = std::size_t{80} * 1024;

using Candidate = PlaceholderRoastEngine::Candidate;
using Ranked = PlaceholderRoastEngine::Ranked;

bool holds(const std::vector<std::string>& entries, std::string_view entry) {
  return std::ranges::find(entries, entry) != entries.end();
}

std::string templateId(const Family& family, std::size_t index) {
  return std::string(family.idPrefix) += std::to_string(index + 1);
}

/// The candidates that fit the sample; all of them when none does.
std::vector<const Candidate*> poolOf(const std::pmr::vector<Ranked>& ranked) {
  const bool anyMatches = std::ranges::any_of(ranked, &Ranked::matches);
  std::vector<const Candidate*> pool;
  pool.reserve(ranked.size());
  for (const Ranked& entry : ranked) {
    if (entry.matches || !anyMatches) pool.push_back(&entry.candidate);
  }
  return pool;
}

/// The candidate of highest priority that is acceptable, the one built first among equals; null when none is.
template <typename Acceptable>
const Candidate* highestPriority(const std::vector<const Candidate*>& pool, Acceptable acceptable) {
  const Candidate* highest = nullptr;
  for (const Candidate* candidate : pool) {
    if ((!highest || candidate->priority > highest->priority) && acceptable(*candidate)) highest = candidate;
  }
  return highest;
}

}  // namespace

LastRoast PlaceholderRoastEngine::roast(const SystemSnapshot& snapshot, const MacMood& mood,
                                        const RecentRoastHistory& history) const {
  // Some three hundred lines are written for each call and dropped together at its end.
  std::pmr::monotonic_buffer_resource memory(roomForCandidates);
  const std::pmr::vector<Ranked> ranked = buildCandidates(snapshot, mood, memory);
  const Candidate* const choice = choose(poolOf(ranked), history);
  if (!choice) {
    return {.text = "Mac Mood: " + std::string(displayText(mood.label)) + ". Everything is fine. Allegedly.",
            .category = "general",
            .ruleId = "general_ok",
            .templateId = "general_ok_fallback",
            .mood = mood,
            .createdAt = clock_.now()};
  }
  return {.text = std::string(choice->text),
          .category = std::string(choice->category),
          .ruleId = std::string(choice->ruleId),
          .templateId = choice->templateId,
          .mood = mood,
          .createdAt = clock_.now()};
}

std::pmr::vector<Ranked> PlaceholderRoastEngine::buildCandidates(const SystemSnapshot& snapshot, const MacMood& mood,
                                                                 std::pmr::memory_resource& memory) const {
  const TemplateValues values(snapshot, mood);
  std::pmr::vector<Ranked> ranked(&memory);
  ranked.reserve(std::transform_reduce(families_.begin(), families_.end(), std::size_t{0}, std::plus<>{},
                                       [](const Family& family) { return family.lines.size(); }));
  for (const Family& family : families_) {
    if (!family.exists(snapshot)) continue;
    const bool matches = family.matches(snapshot);
    for (std::size_t i = 0; i < family.lines.size(); ++i) {
      ranked.emplace_back(matches, Candidate{.category = family.category,
                                             .ruleId = family.ruleId,
                                             .templateId = templateId(family, i),
                                             .text = values.fill(family.lines[i], memory),
                                             .priority = family.priority});
    }
  }
  return ranked;
}

const Candidate* PlaceholderRoastEngine::choose(const Pool& pool, const RecentRoastHistory& history) const {
  const auto newText = [&](const Candidate& candidate) { return !holds(history.texts, candidate.text); };
  const auto fresh = [&](const Candidate& candidate) {
    return newText(candidate) && !holds(history.templateIds, candidate.templateId);
  };
  if (const Candidate* candidate = highestPriority(pool, fresh)) return candidate;
  // A template said lately still reads as new when a figure in it has changed.
  if (const Candidate* candidate = highestPriority(pool, newText)) return candidate;
  return pool.empty() ? nullptr : &chooseAmongSaid(pool, history);
}

/// Everything was said lately: anything but the very last one, or whatever comes when there is nothing else.
const Candidate& PlaceholderRoastEngine::chooseAmongSaid(const Pool& pool, const RecentRoastHistory& history) const {
  const std::size_t drawn = std::uniform_int_distribution<std::size_t>(0, pool.size() - 1)(random_);
  const auto other = std::ranges::find_if(pool, [&](const Candidate* candidate) {
    return history.templateIds.empty() || candidate->templateId != history.templateIds.front();
  });
  return other == pool.end() ? *pool[drawn] : **other;
}

}  // namespace quibbly
