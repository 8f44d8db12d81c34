#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/main_queue.h"

namespace quibbly::linux_services {

/// Runs a program as `ChildProcess` does, without waiting, and hands over what it printed, once and on a later turn of the
/// queue. A program that is not there has printed nothing; one that is not done within a second is killed, as is one that
/// prints more than a few lines, and what it printed so far counts.
void readOutput(MainQueue& queue, std::vector<std::string> words, std::string_view searchPath,
                std::function<void(std::string)> answer);

}  // namespace quibbly::linux_services
