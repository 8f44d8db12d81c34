#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/main_queue.h"
#include "platform/terminal.h"
#include "platform/user_text.h"
#include "ui/panel_contents.h"
#include "ui/terminal_banner_screen.h"

namespace quibbly {

/// The panel on a terminal, redrawn when something changed, with a key for each command. Where the output is no terminal, the
/// panel is printed once the machine was sampled, and from then on each new roast and each new status as a line. Main
/// thread; must outlive the queue's work.
class TerminalFace {
 public:
  struct Command {
    char key;
    std::string title;
    std::function<void()> run;
    /// Empty for one that always is.
    std::function<bool()> isEnabled;
  };
  struct Ports {
    MainQueue& queue;
    Terminal& terminal;
    TerminalBannerScreen& toasts;
    const UserText& userText;
    std::function<PanelState()> state;
    /// Without colours text is still bold or dim.
    bool usesColours = true;
  };

  TerminalFace(Ports ports, std::vector<Command> commands) : ports_(std::move(ports)), commands_(std::move(commands)) {}
  TerminalFace(const TerminalFace&) = delete;
  TerminalFace& operator=(const TerminalFace&) = delete;
  ~TerminalFace() { ports_.toasts.onChange({}); }

  /// Takes the terminal over. `end` is called when the program is to end, and `failed` when nothing can be written any more.
  void start(std::function<void()> end, std::function<void()> failed);
  /// To be called when anything changed; all changes of one turn of the queue are drawn together on the next.
  void changed();

 private:
  void show();
  void draw(const PanelState& state);
  void printNews(const PanelState& state);
  void press(char key);
  void write(const std::string& text);

  Ports ports_;
  std::vector<Command> commands_;
  std::function<void()> failed_;
  bool isPosted_ = false;
  std::string onScreen_;
  std::optional<PanelState> printed_;
};

}  // namespace quibbly
