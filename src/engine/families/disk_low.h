#pragma once

#include <array>
#include <string_view>

#include "engine/family.h"
#include "records/system_snapshot.h"
#include "records/units.h"

namespace quibbly {

inline constexpr auto diskLowLines = std::to_array<std::string_view>({
    "{diskGB} GB free. One Xcode project away from disaster.",
    "Only {diskGB} GB left. Downloads is applying for nationhood.",
    "{diskGB} GB free. Those final-final-really-final files are not a personality trait.",
    "Disk space: {diskGB} GB. The trash can has trust issues.",
    "{diskGB} GB free. Storage is not infinite, despite your optimism.",
    "Free space {diskGB} GB. Your SSD is writing a resignation letter.",
    "{diskGB} GB left. Maybe delete the third copy of node_modules.",
    "Disk: {diskGB} GB free. Time to meet your Screenshots folder.",
    "{diskGB} GB remaining. iCloud would like a word. Or a cheque.",
    "Free: {diskGB} GB. Your Mac is claustrophobic.",
    "{diskGB} GB free. The disk is not a museum.",
    "Storage left: {diskGB} GB. Bold for someone who never empties Trash.",
    "{diskGB} GB. Finder is side-eyeing you.",
    "Only {diskGB} GB free. Future installs will be character-building.",
    "{diskGB} GB free. Your ‘Archives’ folder is not archiving.",
    "Disk space {diskGB} GB. Compact your life, not just your DMG.",
});
static_assert(diskLowLines.size() == 16 && placeholdersAreKnown(diskLowLines) && isTypographic(diskLowLines));

/// Little room left on the home volume. Compares the free space itself, not the one-decimal text of the line.
inline constexpr Family diskLow{.category = "disk",
                                .ruleId = "disk_low",
                                .idPrefix = "disk_",
                                .priority = 85,
                                .lines = diskLowLines,
                                .matches = [](const SystemSnapshot& s) { return gigabytes(s.diskFreeBytes) < 15.0; }};

}  // namespace quibbly
