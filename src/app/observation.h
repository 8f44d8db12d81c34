#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <utility>

namespace quibbly {

/// Whoever wants to hear that an object changed. One thread.
class Observers {
 public:
  using Handler = std::function<void()>;

  /// One observer's place; gone, nothing is heard any more. May outlive what it observes.
  class Token {
   public:
    Token() = default;
    Token(std::weak_ptr<std::map<std::uint64_t, Handler>> handlers, std::uint64_t place)
        : handlers_(std::move(handlers)), place_(place) {}
    Token(Token&& other) noexcept : handlers_(std::exchange(other.handlers_, {})), place_(other.place_) {}
    Token& operator=(Token&& other) noexcept {
      std::swap(handlers_, other.handlers_);
      std::swap(place_, other.place_);
      return *this;
    }
    ~Token() {
      if (const auto handlers = handlers_.lock()) handlers->erase(place_);
    }

   private:
    std::weak_ptr<std::map<std::uint64_t, Handler>> handlers_;
    std::uint64_t place_ = 0;
  };

  /// Calls the handler after each change, inside the assignment that makes it; an observer that has much to do collects
  /// changes until the queue's next turn.
  [[nodiscard]] Token add(Handler handler) {
    handlers_->emplace(++lastPlace_, std::move(handler));
    return {handlers_, lastPlace_};
  }
  void tell() const {
    // A handler may add observers, who hear of the next change, and remove any, and what is observed with them.
    const auto handlers = handlers_;
    const std::uint64_t last = lastPlace_;
    for (auto next = handlers->begin(); next != handlers->end() && next->first <= last;) {
      const auto [place, handler] = *next;
      handler();
      next = handlers->upper_bound(place);
    }
  }

 private:
  std::shared_ptr<std::map<std::uint64_t, Handler>> handlers_ = std::make_shared<std::map<std::uint64_t, Handler>>();
  std::uint64_t lastPlace_ = 0;
};

/// A field whose observers are told when it is given another value; writing an equal one is silent.
template <typename Value>
class Observed {
 public:
  explicit Observed(const Observers& observers, Value initial = Value())
      : observers_(observers), value_(std::move(initial)) {}
  Observed(const Observed&) = delete;
  ~Observed() = default;

  // NOLINTNEXTLINE(cppcoreguidelines-c-copy-assignment-signature, misc-unconventional-assign-operator)
  void operator=(Value value) {
    if (value == value_) return;
    value_ = std::move(value);
    observers_.tell();
  }
  void operator=(const Observed&) = delete;

  // NOLINTNEXTLINE(google-explicit-constructor): it is read as what it holds
  operator const Value&() const { return value_; }
  [[nodiscard]] const Value& operator*() const { return value_; }
  [[nodiscard]] const Value* operator->() const { return &value_; }

 private:
  const Observers& observers_;
  Value value_;
};

}  // namespace quibbly
