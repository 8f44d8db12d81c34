#pragma once

#include <string_view>

namespace quibbly::linux_services {

/// Called first thing: makes sure that descriptors 0 to 2 are open, so that a file opened later cannot become standard
/// output by accident, and lets a broken pipe and a file grown too large come back as errors instead of ending the program.
/// The name, of static duration, is what the program complains under.
void prepareStandardStreams(std::string_view programName);

/// Writes "PROGRAM: MESSAGE" as one line to standard error; nobody can be told when that fails.
void complain(std::string_view message);

/// Writes the whole text to standard output; false when that fails, on a full disk or when the reader went away, after a
/// complaint that says why.
[[nodiscard]] bool printOrComplain(std::string_view text);

}  // namespace quibbly::linux_services
