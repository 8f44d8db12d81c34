#include "ui/terminal_face.h"

#include <chrono>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/fake_terminal.h"
#include "fakes/manual_queue.h"
#include "fakes/samples.h"
#include "notify/desktop_banner.h"
#include "platform/linux/icu_user_text.h"
#include "ui/terminal_layout.h"
#include "ui/terminal_pasteboard.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

const linux_services::IcuUserText userText;

PanelState fullState() {
  PanelState state{.latestSnapshot = fakes::quietSample(),
                   .lastRoast = LastRoast{.text = "Your RAM is full of regret, and of tabs you will never read again."},
                   .dailyRoastLimit = 3,
                   .statusMessage = "Fresh roast ready."};
  state.latestSnapshot->runningAppCount = 12;
  return state;
}

std::string shown(const TerminalScreen& screen, int columns, int rows) {
  std::string text;
  for (const TerminalLine& line : terminalLines(screen, {.columns = columns, .rows = rows}, userText)) {
    for (const StyledText& piece : line) text += piece.text;
    text += "\n";
  }
  return text;
}

TEST(TerminalLayout, leaves_out_the_least_important_first) {
  const TerminalScreen screen{.panel = panelContents(fullState()),
                              .keys = {{'r', "Roast me again", true}, {'q', "Quit quibbly", true}}};
  EXPECT_EQ(shown(screen, 40, 30),
            "♨ Mac Mood: Proud\n"
            "\n"
            "CPU estimate   ~0%\n"
            "RAM estimate   ~50%\n"
            "Battery        80%\n"
            "Uptime         1 days\n"
            "Apps           12\n"
            "Thermal        nominal\n"
            "────────────────────────────────────────\n"
            "Your RAM is full of regret, and of tabs\n"
            "you will never read again.\n"
            "\n"
            "Notify budget: 0/3 today\n"
            "Fresh roast ready.\n"
            "────────────────────────────────────────\n"
            "r Roast me again   q Quit quibbly\n");
  EXPECT_EQ(shown(screen, 40, 6),
            "♨ Mac Mood: Proud\n"
            "Your RAM is full of regret, and of tabs\n"
            "you will never read again.\n"
            "Notify budget: 0/3 today\n"
            "Fresh roast ready.\n"
            "r Roast me again   q Quit quibbly\n");
  EXPECT_EQ(shown(screen, 20, 5),
            "♨ Mac Mood: Proud\n"
            "Your RAM is full of\n"
            "regret, and of tabs\n"
            "you will never read\n"
            "again.\n");
}

TEST(TerminalLayout, needs_no_more_room_or_time_than_there_is_for_a_text_without_end) {
  const std::string endless(std::size_t{1} << 17U, 'a');
  TerminalScreen screen{.panel = panelContents(fullState()), .keys = {{'r', "Roast me again", true}}};
  screen.toast = BannerView{.title = "Your Mac would like a word", .message = endless};
  screen.panel.roast = "👨‍👩‍👧‍👦漢字漢字 \x1b[31me\u0301e\u0301 " + endless;
  screen.panel.status = endless;
  for (const int columns : {1, 2, 40}) {
    for (const int rows : {1, 24, 100}) {
      const auto lines = terminalLines(screen, {.columns = columns, .rows = rows}, userText);
      EXPECT_LE(lines.size(), static_cast<std::size_t>(rows));
      for (const TerminalLine& line : lines) {
        std::string text;
        for (const StyledText& piece : line) text += piece.text;
        EXPECT_LE(userText.columns(text), static_cast<std::size_t>(columns)) << text;
        EXPECT_THAT(text, Not(HasSubstr("\x1b")));
      }
    }
  }
}

TEST(TerminalLayout, shows_a_toast_of_one_line_of_title_and_four_of_message) {
  TerminalScreen screen{.panel = {.heading = "Mac Mood: Proud"}, .keys = {}};
  screen.toast = BannerView{.title = "A title that is too long", .message = "one two three four five six seven"};
  EXPECT_EQ(shown(screen, 12, 8),
            "╭──────────╮\n"
            "│ A title… │\n"
            "│ one two  │\n"
            "│ three    │\n"
            "│ four     │\n"
            "│ five si… │\n"
            "╰──────────╯\n"
            "♨ Mac Mood: \n");
}

TEST(TerminalLayout, breaks_lines_between_words_and_long_words_anywhere) {
  EXPECT_THAT(wrapped("one two", 7, userText), ElementsAre("one two"));
  EXPECT_THAT(wrapped("one two", 6, userText), ElementsAre("one", "two"));
  EXPECT_THAT(wrapped("a 漢字漢字 b", 5, userText), ElementsAre("a", "漢字", "漢字", "b"));
  EXPECT_THAT(wrapped("", 5, userText), ElementsAre(""));
  EXPECT_THAT(wrapped("one two three", 5, userText, 2), ElementsAre("one", "two"));
}

class Face : public ::testing::Test {
 protected:
  void start(bool interactive) {
    terminal_ = std::make_unique<fakes::FakeTerminal>(interactive);
    face_ = std::make_unique<TerminalFace>(
        TerminalFace::Ports{.queue = queue_,
                            .terminal = *terminal_,
                            .toasts = toasts_,
                            .userText = userText,
                            .state = [this] { return state_; }},
        std::vector<TerminalFace::Command>{
            {'r', "Roast me again", [this] { pressed_ += 'r'; }, {}},
            {'c', "Copy roast", [this] { pressed_ += 'c'; }, [this] { return state_.lastRoast.has_value(); }}});
    face_->start([this] { pressed_ += "end"; }, [this] { pressed_ += "failed"; });
    queue_.run();
  }
  std::string written() {
    face_->changed();
    queue_.run();
    return terminal_->takeWritten();
  }

  fakes::ManualQueue queue_;
  TerminalBannerScreen toasts_{queue_};
  DesktopBanner banner_{queue_, toasts_};
  PanelState state_ = fullState();
  std::unique_ptr<fakes::FakeTerminal> terminal_;
  std::unique_ptr<TerminalFace> face_;
  std::string pressed_;
};

TEST_F(Face, draws_when_something_changed_and_only_then) {
  start(true);
  EXPECT_THAT(terminal_->takeWritten(), AllOf(HasSubstr("Mac Mood: Proud"), HasSubstr("\x1b[H"), HasSubstr("\x1b[J")));
  EXPECT_EQ(written(), "");
  state_.statusMessage = "Copied.";
  face_->changed();
  EXPECT_THAT(written(), HasSubstr("Copied."));
  terminal_->events.redraw();
  EXPECT_NE(written(), "") << "what was on the screen is gone";
}

TEST_F(Face, prints_the_panel_once_and_then_what_is_new_until_it_can_not_be_written) {
  state_.latestSnapshot.reset();
  start(false);
  EXPECT_EQ(terminal_->takeWritten(), "");
  state_ = fullState();
  EXPECT_THAT(written(),
              AllOf(HasSubstr("Mac Mood: Proud\n"), HasSubstr("Fresh roast ready.\n"), Not(HasSubstr("\x1b"))));
  state_.latestSnapshot->runningAppCount = 99;
  EXPECT_EQ(written(), "");
  state_.lastRoast->text = "New\x1b[2J line.";
  state_.statusMessage = "Copied.";
  EXPECT_EQ(written(), "New [2J line.\nCopied.\n");
  state_.statusMessage.reset();
  EXPECT_EQ(written(), "");
  state_.statusMessage = "Copied.";
  EXPECT_EQ(written(), "Copied.\n");
  EXPECT_EQ(pressed_, "");
  terminal_->fails = true;
  state_.statusMessage = "Lost.";
  (void)written();
  EXPECT_EQ(pressed_, "failed");
}

TEST_F(Face, a_key_runs_its_command_unless_that_is_disabled) {
  start(true);
  for (const char key : {'r', 'c', 'x'}) terminal_->events.key(key);
  state_.lastRoast.reset();
  terminal_->events.key('c');
  terminal_->events.end();
  EXPECT_EQ(pressed_, "rcend");
}

TEST_F(Face, shows_a_toast_until_it_has_faded) {
  start(true);
  terminal_->takeWritten();
  banner_.show("Your Mac would like a word", "one", 5s);
  queue_.run();
  EXPECT_THAT(terminal_->takeWritten(), HasSubstr("one"));
  banner_.show("Your Mac would like a word", "two", 5s);
  queue_.run();
  EXPECT_THAT(terminal_->takeWritten(), AllOf(HasSubstr("two"), Not(HasSubstr("one"))));
  queue_.advance(5s);
  EXPECT_THAT(terminal_->takeWritten(), HasSubstr("two")) << "fading";
  queue_.advance(250ms);
  EXPECT_THAT(terminal_->takeWritten(), Not(HasSubstr("two")));

  banner_.show("Your Mac would like a word", "three", 5s);
  queue_.run();
  face_.reset();
  queue_.advance(6s);  // in which the toast goes, after the face
}

TEST(TerminalPasteboardTest, copies_through_a_terminal_and_only_what_it_takes) {
  for (const bool interactive : {true, false}) {
    fakes::FakeTerminal terminal(interactive);
    TerminalPasteboard pasteboard(terminal);
    pasteboard.setText("Your RAM…");
    EXPECT_EQ(terminal.takeWritten(), interactive ? "\x1b]52;c;WW91ciBSQU3igKY=\x07" : "");
    pasteboard.setText(std::string(100'000, 'x'));
    EXPECT_EQ(terminal.takeWritten(), "");
  }
}

}  // namespace
}  // namespace quibbly
