#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace quibbly {

/// Keeps the program to one instance a user session, and hears what the desktop and later starts ask of it. Main thread.
class SingleInstance {
 public:
  /// How many URLs can be handed over at once, and how much can be asked for within a second; more than that is nothing that
  /// a user did.
  static constexpr std::size_t mostAtOnce = 32;
  /// Of a URL, and of the name of an action, in bytes.
  static constexpr std::size_t longestText = 4096;

  /// Called on later turns of the main queue, for as long as the instance is the one.
  struct Requests {
    /// The program was started again.
    std::function<void()> activate;
    std::function<void(std::vector<std::string>)> open;
    /// One of the actions that the desktop entry names.
    std::function<void(std::string)> action;
  };

  enum class Place {
    /// This instance is the one.
    first,
    /// Another one is, and has taken the URLs; without any, it was asked to come forward.
    handedOver,
    /// Another one is, and did not take them.
    refused,
  };

  virtual ~SingleInstance() = default;
  /// Takes the place, or hands the URLs over to who has it. Once; answers once, within seconds, on a later turn of the main
  /// queue.
  virtual void claim(Requests requests, std::vector<std::string> urls, std::function<void(Place)> answer) = 0;
};

}  // namespace quibbly
