// The least program that samples the machine every 15 seconds, as quibbly does, and looks for two files every 0.4, as a program
// does that nobody tells of them. Bare system calls. Argument: the directory of the files. Ends when it is killed.

#include <limits.h>
#include <poll.h>
#include <stdint.h>
#include <stdio.h>
#include <sys/timerfd.h>

#include "bare_reads.h"

static int timerOf(time_t seconds, long nanoseconds) {
  const struct timespec period = {seconds, nanoseconds};
  const struct itimerspec setting = {period, period};
  const int timer = timerfd_create(CLOCK_BOOTTIME, TFD_CLOEXEC);
  timerfd_settime(timer, 0, &setting, NULL);
  return timer;
}

static int hasFired(const struct pollfd* timer) {
  uint64_t times;
  return (timer->revents & POLLIN) != 0 && read(timer->fd, &times, sizeof times) > 0;
}

int main(int argc, char** argv) {
  char request[PATH_MAX], notification[PATH_MAX];
  snprintf(request, sizeof request, "%s/roastRequest.json", argc > 1 ? argv[1] : ".");
  snprintf(notification, sizeof notification, "%s/pendingNotify.json", argc > 1 ? argv[1] : ".");
  struct pollfd timers[] = {{timerOf(0, 400000000), POLLIN, 0}, {timerOf(15, 0), POLLIN, 0}};
  while (poll(timers, 2, -1) > 0) {
    if (hasFired(&timers[0])) {
      open(request, O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
      open(notification, O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
    }
    if (hasFired(&timers[1])) readSample();
  }
  return 1;
}
