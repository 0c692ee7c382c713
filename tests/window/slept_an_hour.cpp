// SPDX-License-Identifier: MIT
//
// Loaded before the program, it makes it believe, on SIGUSR1, that the machine has slept for an hour: the
// clocks that go on meanwhile are an hour ahead from then on, and the one that stands still knows nothing of
// it.

#include <atomic>
#include <csignal>
#include <ctime>

#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

namespace {

constexpr time_t hour = 3600; // seconds

std::atomic<bool> hasSlept; // set by the signal
static_assert(std::atomic<bool>::is_always_lock_free);

void sleepAnHour(int /*signal*/) { hasSlept = true; }

bool goesOnInSleep(clockid_t clock) {
  return clock == CLOCK_REALTIME || clock == CLOCK_REALTIME_COARSE || clock == CLOCK_BOOTTIME;
}

[[gnu::constructor]] void listen() {
  struct sigaction action {};
  action.sa_handler = sleepAnHour;
  action.sa_flags = SA_RESTART;
  sigaction(SIGUSR1, &action, nullptr);
}

} // namespace

extern "C" {

int clock_gettime(clockid_t clock, timespec* time) noexcept {
  const auto result = static_cast<int>(syscall(SYS_clock_gettime, clock, time));
  if (result == 0 && hasSlept && goesOnInSleep(clock)) time->tv_sec += hour;
  return result;
}

int gettimeofday(timeval* time, void* /*zone*/) noexcept {
  timespec now{};
  const int result = clock_gettime(CLOCK_REALTIME, &now);
  *time = {now.tv_sec, now.tv_nsec / 1000};
  return result;
}
}
