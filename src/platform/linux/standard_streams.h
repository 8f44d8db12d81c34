#pragma once

#include <string_view>
#include <system_error>

namespace quibbly::linux_services {

/// Called first thing: makes sure that descriptors 0 to 2 are open, so that a file opened later cannot become standard
/// output by accident, and lets a broken pipe come back as an error instead of ending the program.
void prepareStandardStreams();

/// Writes the whole text to standard output. The error is the system's, such as a full disk or a reader that went away.
[[nodiscard]] std::error_code printToStandardOutput(std::string_view text);

/// Writes "quibbly: MESSAGE" as one line to standard error; nobody can be told when that fails.
void complain(std::string_view message);

}  // namespace quibbly::linux_services
