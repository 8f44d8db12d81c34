#include "platform/linux/child_process.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <ranges>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/attempt.h"

namespace quibbly::linux_services {
namespace {

/// What a child does not take over from us.
class SpawnSettings {
 public:
  explicit SpawnSettings(int output) {
    (void)::posix_spawn_file_actions_init(&files_);
    (void)::posix_spawnattr_init(&attributes_);
    redirect(output);
    resetSignals();
    (void)::posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSID);
  }
  SpawnSettings(const SpawnSettings&) = delete;
  SpawnSettings& operator=(const SpawnSettings&) = delete;
  ~SpawnSettings() {
    (void)::posix_spawnattr_destroy(&attributes_);
    (void)::posix_spawn_file_actions_destroy(&files_);
  }

  /// The process; absent when the file is not there or is no program.
  [[nodiscard]] std::optional<pid_t> spawn(const std::filesystem::path& program, char* const* arguments) const {
    pid_t id = 0;
    const bool started = ::posix_spawn(&id, program.c_str(), &files_, &attributes_, arguments, environ) == 0;
    return started ? std::optional(id) : std::nullopt;
  }

 private:
  void redirect(int output) {
    (void)::posix_spawn_file_actions_addopen(&files_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    (void)::posix_spawn_file_actions_addopen(&files_, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    (void)::posix_spawn_file_actions_addopen(&files_, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    if (output >= 0) (void)::posix_spawn_file_actions_adddup2(&files_, output, STDOUT_FILENO);
  }
  void resetSignals() {
    sigset_t signals{};
    (void)::sigemptyset(&signals);
    (void)::posix_spawnattr_setsigmask(&attributes_, &signals);
    // Those that `prepareStandardStreams` ignores.
    for (const int signal : {SIGPIPE, SIGXFSZ}) (void)::sigaddset(&signals, signal);
    (void)::posix_spawnattr_setsigdefault(&attributes_, &signals);
  }

  posix_spawn_file_actions_t files_{};
  posix_spawnattr_t attributes_{};
};

bool awaitEnd(pid_t id) {
  while (::waitpid(id, nullptr, 0) < 0) {
    if (errno != EINTR) return false;
  }
  return true;
}

}  // namespace

std::optional<ChildProcess> ChildProcess::start(std::vector<std::string> words, std::string_view searchPath,
                                                int output) {
  const SpawnSettings settings(output);
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  for (const auto part : std::views::split(searchPath, ':')) {
    const std::filesystem::path directory(part.begin(), part.end());
    // A relative directory holds other programs wherever we were started.
    if (!directory.is_absolute()) continue;
    if (const auto id = settings.spawn(directory / words.front(), arguments.data())) return ChildProcess(*id);
  }
  return std::nullopt;
}

ChildProcess::~ChildProcess() {
  // SIGCHLD belongs to the whole process, and a settings window may be open for hours: a thread waits for the end.
  if (id_ > 0) const Attempt<bool> ended([id = id_] { return awaitEnd(id); });
}

void ChildProcess::kill() const {
  // Until it is waited for, its number is nobody else's.
  if (id_ > 0) (void)::kill(-id_, SIGKILL);
}

}  // namespace quibbly::linux_services
