#include "platform/linux/program_output.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <fcntl.h>
#include <memory>
#include <unistd.h>
#include <utility>

#include "platform/linux/child_process.h"
#include "platform/linux/file_descriptor.h"

namespace quibbly::linux_services {
namespace {

using namespace std::chrono_literals;

constexpr auto patience = 1s;
constexpr std::size_t mostOutput = 4096;

/// A program that prints. It belongs to the work that the queue does for it.
class Reading {
 public:
  Reading(MainQueue& queue, ChildProcess program, FileDescriptor output, std::function<void(std::string)> answer)
      : queue_(queue), program_(std::move(program)), output_(std::move(output)), answer_(std::move(answer)) {}
  Reading(const Reading&) = delete;
  Reading& operator=(const Reading&) = delete;
  ~Reading() { program_.kill(); }

  static void start(const std::shared_ptr<Reading>& self) {
    (void)::fcntl(self->output_.get(), F_SETFL, O_NONBLOCK);
    self->queue_.watch(self->output_.get(), [self] { self->readOn(); });
    self->limit_ = self->queue_.runAt(self->queue_.now() + patience, [self] { self->finish(); });
  }

 private:
  void readOn() {
    std::array<char, 256> chunk{};
    const ssize_t got = ::read(output_.get(), chunk.data(), chunk.size());
    if (got < 0 && (errno == EINTR || errno == EAGAIN)) return;
    if (got > 0) text_.append(chunk.data(), static_cast<std::size_t>(got));
    if (got <= 0 || text_.size() > mostOutput) finish();
  }
  void finish() {
    queue_.unwatch(output_.get());
    queue_.cancel(limit_);
    answer_(std::move(text_));
  }

  MainQueue& queue_;
  ChildProcess program_;
  FileDescriptor output_;
  std::function<void(std::string)> answer_;
  MainQueue::TimerId limit_{};
  std::string text_;
};

}  // namespace

void readOutput(MainQueue& queue, std::vector<std::string> words, std::string_view searchPath,
                std::function<void(std::string)> answer) {
  std::array<int, 2> ends{-1, -1};
  const bool hasPipe = ::pipe2(ends.data(), O_CLOEXEC) == 0;
  FileDescriptor output(ends[0]);
  const FileDescriptor input(ends[1]);
  auto program = hasPipe ? ChildProcess::start(std::move(words), searchPath, input.get()) : std::nullopt;
  if (!program) {
    queue.post([answer = std::move(answer)] { answer(""); });
    return;
  }
  Reading::start(std::make_shared<Reading>(queue, *std::move(program), std::move(output), std::move(answer)));
}

}  // namespace quibbly::linux_services
