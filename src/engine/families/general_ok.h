#pragma once

#include <array>
#include <string_view>

#include "engine/family.h"

namespace quibbly {

inline constexpr auto generalOkLines = std::to_array<std::string_view>({
    "Mac Mood: {mood}. Everything is fine. Allegedly.",
    "Score {score}. Your Mac is taking notes.",
    "Still here. Still judging. Mood: {mood}.",
    "Routine check: RAM ~{ram}%, apps {apps}, uptime {days}d.",
    "Nothing on fire. Emotionally. Mood: {mood}.",
    "Your Mac would like a word. It will think of one shortly.",
    "Status: {mood}. Please hold for mild disappointment.",
    "Abuse score {score}/100. Wear it like a badge.",
    "Mood {mood}. Your Mac is practicing restraint.",
    "Today’s vibe: {mood}. Stats optional. Judgment included.",
    "RAM ~{ram}%, apps {apps}. Story checks out.",
    "Uptime {days}d, mood {mood}. Character development.",
    "Score {score}. Not a crisis. Not a standing ovation.",
    "Your Mac remains online and mildly unimpressed.",
    "Mood: {mood}. The menu bar agrees.",
    "Everything is under control. That’s the joke.",
    "Mac check-in: {mood}. Please continue being you.",
    "Score {score}. Notes app has a file about you.",
    "Thermal {thermal}, mood {mood}. Balanced breakfast.",
    "Apps {apps}, RAM {ram}%. Peak modern living.",
    "Your Mac is fine. It’s the user we monitor.",
    "Mood {mood}. No notes. Many notes.",
    "Score {score}. Could be worse. Give it an hour.",
    "Still roasting. Still unpaid. Mood: {mood}.",
    "Uptime {days} days of choices. Some of them good.",
    "RAM {ram}% — the silent main character.",
    "Mac Mood update: {mood}. Please clap.",
    "Score {score}. Your hardware has feelings. Mostly tired.",
    "Another day, another {apps} apps. Mood: {mood}.",
    "System nominal-ish. User: complicated. Mood: {mood}.",
    "Free disk {diskGB} GB. Free will: debatable.",
    "Mood {mood}. The roast writes itself slowly.",
    "Score {score}. Mid-tier chaos. Classic.",
    "Your Mac is stable. Your habits are content.",
    "Thermal {thermal}. Soul: {mood}.",
    "Apps {apps}. Ambition: unlimited. Focus: missing.",
    "Mood {mood}. Restart optional. Growth optional.",
    "Score {score}. The dashboard is not impressed.",
    "Still watching. Still roasting. Still {mood}.",
    "RAM {ram}%, uptime {days}d. Plot ongoing.",
    "Mac says {mood}. Translation available upon request.",
    "Score {score}. Keep going. Or don’t. We’ll document it.",
    "Quiet day? Mood still {mood}. Trust issues.",
    "Your Mac clocked in. Judgment included in benefits.",
    "Status: online. Personality: {mood}.",
    "Free space {diskGB} GB. Free advice: close something.",
    "Mood {mood}. The widget is not blinking for fun.",
    "Score {score}. Somewhere a cleaner Mac exists.",
    "Apps {apps}, thermal {thermal}. Cinema.",
    "Another roast, another chance to pretend you changed.",
});
static_assert(generalOkLines.size() == 50 && placeholdersAreKnown(generalOkLines) && isTypographic(generalOkLines));

/// Status-like lines, below the lifestyle voice; heard only when every lifestyle line was said lately.
inline constexpr Family generalOk{
    .category = "general", .ruleId = "general_ok", .idPrefix = "general_", .priority = 10, .lines = generalOkLines};

}  // namespace quibbly
