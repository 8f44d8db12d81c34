#include "platform/linux/standard_streams.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <string>
#include <unistd.h>

#include "platform/linux/descriptor_io.h"

namespace quibbly::linux_services {

namespace {

std::string_view& program() {
  static std::string_view name;
  return name;
}

}  // namespace

void prepareStandardStreams(std::string_view programName) {
  program() = programName;
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(descriptor, F_GETFD) != -1 || errno != EBADF) continue;
    // The lowest free number is the one that is missing. Opened the wrong way round, it still fails as a closed one does.
    [[maybe_unused]] const int taken = ::open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY);
  }
  for (const int signal : {SIGPIPE, SIGXFSZ}) (void)std::signal(signal, SIG_IGN);
}

void complain(std::string_view message) {
  [[maybe_unused]] const std::error_code unheard =
      writeAll(STDERR_FILENO, std::string(program()) + ": " + std::string(message) + "\n");
}

bool printOrComplain(std::string_view text) {
  const std::error_code error = writeAll(STDOUT_FILENO, text);
  if (error) complain("cannot write to standard output: " + error.message());
  return !error;
}

}  // namespace quibbly::linux_services
