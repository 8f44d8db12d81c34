#include "platform/linux/posix_terminal.h"

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <optional>
#include <poll.h>
#include <pty.h>
#include <string>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <utility>

#include <gtest/gtest.h>

#include "fakes/manual_queue.h"
#include "fakes/process.h"

namespace quibbly::linux_services {
namespace {

using namespace std::chrono_literals;

/// A program on a terminal of its own, which says on its screen what it is told, and whose user is the test.
class OnATerminal : public ::testing::Test {
 protected:
  void SetUp() override {
    const pid_t child = ::forkpty(&user_, nullptr, nullptr, nullptr);
    if (child == 0) runProgram();
    program_.emplace(child);
    ASSERT_TRUE(see("ready"));
  }
  void TearDown() override {
    program_.reset();
    hangUp();
  }
  void hangUp() {
    if (user_ >= 0) ::close(std::exchange(user_, -1));
    screen_.clear();
  }

  [[noreturn]] static void runProgram() {
    holdBack(endingSignals);
    holdBack(terminalSignals);
    fakes::ManualQueue queue;
    bool ended = false;
    {
      PosixTerminal terminal(queue, "xterm");
      const auto say = [&](const std::string& text) { (void)terminal.write("<" + text + ">"); };
      std::string keys;
      terminal.open({.key = [&](char key) { say("keys " + (keys += key)); },
                     .redraw = [&] { say("redraw " + std::to_string(terminal.size().columns)); },
                     .end = [&] { ended = true; }});
      say("ready");
      queue.until([&] { return ended; });
    }
    std::_Exit(ended ? 7 : 8);
  }

  void type(std::string_view keys) { EXPECT_EQ(::write(user_, keys.data(), keys.size()), std::ssize(keys)); }

  /// Whether the text comes up on the screen.
  bool see(std::string_view text) {
    for (const auto end = std::chrono::steady_clock::now() + 20s; std::chrono::steady_clock::now() < end;) {
      if (screen_.find(text) != std::string::npos) return true;
      pollfd asked{.fd = user_, .events = POLLIN, .revents = 0};
      std::array<char, 4096> bytes{};
      if (::poll(&asked, 1, 100) <= 0) continue;
      const ssize_t got = ::read(user_, bytes.data(), bytes.size());
      if (got <= 0) break;
      screen_.append(bytes.data(), static_cast<std::size_t>(got));
    }
    return false;
  }
  [[nodiscard]] bool isRaw() const {
    termios settings{};
    ::tcgetattr(user_, &settings);
    return (settings.c_lflag & (ICANON | ECHO)) == 0;
  }
  void waitUntilStopped() const {
    int status = 0;
    ASSERT_EQ(::waitpid(program_->pid(), &status, WUNTRACED), program_->pid());
    ASSERT_TRUE(WIFSTOPPED(status));
  }

  int user_ = -1;
  std::optional<fakes::Process> program_;
  std::string screen_;
};

TEST_F(OnATerminal, tells_keys_but_no_sequences) {
  EXPECT_TRUE(isRaw());
  // An arrow, one in two reads, a function key, the escape key, and what a terminal says of itself.
  type("r\x1b[Ax\x1b");
  EXPECT_TRUE(see("<keys rx>"));
  type("[1;5B\x1bOq\x1b");
  type("y\x1b[?62;4cz");
  EXPECT_TRUE(see("<keys rxyz>"));
  type("\x03");
  EXPECT_EQ(program_->wait(), 7) << "Ctrl-C ends it";
  EXPECT_TRUE(see("\x1b[?1049l"));
  EXPECT_FALSE(see("<keys rxyz\x03")) << "and is no key";
}

TEST_F(OnATerminal, is_given_back_while_the_program_is_suspended_and_tells_a_change_of_size) {
  type("\x1a");
  waitUntilStopped();
  EXPECT_FALSE(isRaw());
  EXPECT_TRUE(see("\x1b[?1049l"));
  program_->tell(SIGCONT);
  EXPECT_TRUE(see("<redraw 80>"));
  EXPECT_TRUE(isRaw());
  winsize size{.ws_row = 10, .ws_col = 33, .ws_xpixel = 0, .ws_ypixel = 0};
  ::ioctl(user_, TIOCSWINSZ, &size);
  EXPECT_TRUE(see("<redraw 33>"));
}

TEST_F(OnATerminal, is_taken_again_from_whoever_had_it_while_the_program_was_stopped) {
  program_->tell(SIGSTOP);
  waitUntilStopped();
  termios settings{};
  ::tcgetattr(user_, &settings);
  settings.c_lflag |= ICANON | ECHO;
  ::tcsetattr(user_, TCSANOW, &settings);
  program_->tell(SIGCONT);
  EXPECT_TRUE(see("<redraw 80>"));
  EXPECT_TRUE(isRaw());
}

TEST_F(OnATerminal, is_given_back_on_every_way_out) {
  for (const int signal : {SIGINT, SIGQUIT, SIGTERM, SIGHUP}) {
    EXPECT_EQ(program_->end(signal), 7) << signal;
    EXPECT_FALSE(isRaw());
    EXPECT_TRUE(see("\x1b[?25h\x1b[?1049l"));
    hangUp();
    SetUp();
  }
  hangUp();
  EXPECT_EQ(program_->wait(), 7) << "hang-up";
}

TEST_F(OnATerminal, that_is_halted_holds_up_nobody) {
  type("\x13");
  for (int i = 0; i < 3000; ++i) type("k");
  program_->tell(SIGTERM);
  EXPECT_EQ(program_->wait(), 7);
}

TEST(PosixTerminalTest, is_not_interactive_on_anything_else) {
  fakes::ManualQueue queue;
  (void)std::signal(SIGPIPE, SIG_IGN);
  std::array<int, 2> pipe{};
  ASSERT_EQ(::pipe(pipe.data()), 0);
  PosixTerminal terminal(queue, "xterm", pipe[0], pipe[1]);
  EXPECT_FALSE(terminal.isInteractive());
  EXPECT_EQ(terminal.size(), (Terminal::Size{.columns = 80, .rows = 24}));
  EXPECT_TRUE(terminal.write(std::string(1 << 20, 'x'))) << "nobody reads";
  ::close(pipe[0]);
  EXPECT_FALSE(terminal.write("x"));
  ::close(pipe[1]);
}

}  // namespace
}  // namespace quibbly::linux_services
