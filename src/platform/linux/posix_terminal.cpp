#include "platform/linux/posix_terminal.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <initializer_list>
#include <poll.h>
#include <string>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <utility>

namespace quibbly::linux_services {
namespace {

using namespace std::chrono_literals;

constexpr std::string_view beginScreen = "\x1b[?1049h\x1b[?25l\x1b[H\x1b[2J";
constexpr std::string_view endScreen = "\x1b[0m\x1b[?25h\x1b[?1049l";
constexpr int patienceInMilliseconds = 100;
constexpr auto untilDrawnAnew = 1s;

bool canBeDrawnOn(int output, std::string_view kind) {
  return ::isatty(output) != 0 && !kind.empty() && kind != "dumb";
}

/// The same output, where it could block through an open file of its own: that it must not is nobody else's business. A
/// file never blocks, and shares its position with whoever writes it before and after; a socket can block, but not be
/// opened again.
FileDescriptor reopened(int output) {
  struct stat status{};
  const bool mayBlock = ::isatty(output) != 0 || (::fstat(output, &status) == 0 && S_ISFIFO(status.st_mode));
  const std::string path = "/proc/self/fd/" + std::to_string(output);
  FileDescriptor own(mayBlock ? ::open(path.c_str(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC) : -1);
  return own ? std::move(own) : FileDescriptor(::fcntl(output, F_DUPFD_CLOEXEC, 0));
}

}  // namespace

PosixTerminal::PosixTerminal(MainQueue& queue, std::string_view kind, int input, int output)
    : queue_(queue),
      input_(input),
      output_(reopened(output)),
      isInteractive_(canBeDrawnOn(output, kind)),
      readsKeys_(isInteractive_ && ::isatty(input) != 0) {}

PosixTerminal::~PosixTerminal() { close(); }

Terminal::Size PosixTerminal::size() const {
  winsize window{};
  if (::ioctl(output_.get(), TIOCGWINSZ, &window) != 0 || window.ws_col == 0 || window.ws_row == 0) return {};
  return {.columns = window.ws_col, .rows = window.ws_row};
}

void PosixTerminal::open(Events events) {
  events_ = std::move(events);
  const auto hear = [this](int signal) { take(signal); };
  if (isInteractive_) {
    signals_.emplace(queue_, std::initializer_list<Signals>{endingSignals, terminalSignals}, hear);
  } else {
    letThrough(terminalSignals);
    signals_.emplace(queue_, std::initializer_list<Signals>{endingSignals}, hear);
  }
  if (readsKeys_) queue_.watch(input_, [this] { readKeys(); });
  if (isInteractive_) takeOver();
}

void PosixTerminal::close() {
  if (!signals_) return;
  if (drawing_) queue_.cancel(*drawing_);
  drawing_.reset();
  signals_.reset();
  if (readsKeys_) queue_.unwatch(input_);
  giveBack();
}

/// Also when it was taken before: whoever stopped the program from outside has had the terminal since.
void PosixTerminal::takeOver() {
  termios settings{};
  if (::tcgetattr(output_.get(), &settings) != 0) return;
  if (!before_) before_ = settings;
  settings.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO);
  settings.c_cc[VMIN] = 1;
  settings.c_cc[VTIME] = 0;
  (void)::tcsetattr(output_.get(), TCSANOW, &settings);
  (void)write(beginScreen);
}

void PosixTerminal::giveBack() {
  if (!before_) return;
  (void)write(endScreen);
  (void)::tcsetattr(output_.get(), TCSANOW, &*before_);
  before_.reset();
}

void PosixTerminal::take(int signal) {
  if (std::ranges::find(endingSignals, signal) != endingSignals.end()) {
    events_.end();
  } else if (signal == SIGTSTP) {
    suspend();
  } else {
    if (signal == SIGCONT) takeOver();
    events_.redraw();
  }
}

/// The process stands still inside; SIGCONT, which lets it go on, comes as an event too.
void PosixTerminal::suspend() {
  giveBack();
  (void)::kill(::getpid(), SIGSTOP);
}

void PosixTerminal::readKeys() {
  std::array<char, 256> bytes{};
  const ssize_t got = ::read(input_, bytes.data(), bytes.size());
  if (got < 0 && (errno == EINTR || errno == EAGAIN)) return;
  if (got <= 0) {
    // Nobody types any more, and the descriptor would call for ever.
    queue_.unwatch(std::exchange(input_, -1));
    readsKeys_ = false;
    events_.end();
    return;
  }
  for (const char byte : std::string_view(bytes.data(), static_cast<std::size_t>(got))) readKey(byte);
}

/// Skips control sequences (ECMA-48, section 5.4) and the keys that a terminal introduces by SS3.
void PosixTerminal::readKey(char byte) {
  constexpr char escape = '\x1b';
  const bool isPrintable = byte > ' ' && byte <= '~';
  switch (place_) {
    case Place::inSequence:
      if (byte >= '@' && byte <= '~') place_ = Place::key;
      return;
    case Place::afterEscape:
      place_ = byte == '[' || byte == 'O' ? Place::inSequence : Place::key;
      if (place_ == Place::inSequence) return;
      break;
    case Place::key:
      break;
  }
  if (byte == escape) {
    place_ = Place::afterEscape;
  } else if (isPrintable) {
    events_.key(byte);
  }
}

bool PosixTerminal::write(std::string_view text) {
  while (!text.empty() && !hasFailed_) {
    const ssize_t written = ::write(output_.get(), text.data(), text.size());
    if (written >= 0) {
      text.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno == EAGAIN) {
      pollfd asked{.fd = output_.get(), .events = POLLOUT, .revents = 0};
      // One frame is waited for; those that follow while the terminal is halted are not.
      if (::poll(&asked, 1, drawing_ ? 0 : patienceInMilliseconds) > 0) continue;
      drawLater();
      return true;
    } else if (errno != EINTR) {
      hasFailed_ = true;
    }
  }
  return !hasFailed_;
}

void PosixTerminal::drawLater() {
  if (!before_ || drawing_) return;
  drawing_ = queue_.runAt(queue_.now() + untilDrawnAnew, [this] {
    drawing_.reset();
    events_.redraw();
  });
}

}  // namespace quibbly::linux_services
