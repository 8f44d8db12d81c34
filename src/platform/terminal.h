#pragma once

#include <functional>
#include <string_view>

namespace quibbly {

/// The terminal that the program was started on, or whatever its standard output is instead. Main thread.
class Terminal {
 public:
  struct Size {
    int columns = 80;
    int rows = 24;

    bool operator==(const Size&) const = default;
  };

  /// What the user does, on later turns of the main queue.
  struct Events {
    /// A key was pressed. Keys that send more than one byte, such as the arrows, are not told.
    std::function<void(char)> key;
    /// The size changed, or the program was suspended and goes on: what is on the screen is gone.
    std::function<void()> redraw;
    /// The program is to end: it was told to, or the terminal is gone.
    std::function<void()> end;
  };

  virtual ~Terminal() = default;

  /// Whether what is written can be drawn over.
  [[nodiscard]] virtual bool isInteractive() const = 0;
  /// Whether the user can press keys.
  [[nodiscard]] virtual bool readsKeys() const = 0;
  [[nodiscard]] virtual Size size() const = 0;

  /// Takes the terminal over until `close`, and from then on tells what happens. When the output is no terminal nothing is
  /// taken over, and only `end` comes.
  virtual void open(Events events) = 0;
  /// Gives the terminal back as it was found. Also done when this object goes.
  virtual void close() = 0;

  /// Writes all of it, control sequences included, and waits for nobody: what a terminal that was halted, or a pipe that
  /// nobody reads, does not take within a moment is lost, and the terminal asks to be drawn anew later. False when nothing
  /// can be written any more.
  [[nodiscard]] virtual bool write(std::string_view text) = 0;
};

}  // namespace quibbly
