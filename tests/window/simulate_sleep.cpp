// SPDX-License-Identifier: MIT
//
// Preloaded into the program with LD_PRELOAD. SIGUSR1 simulates that the machine has slept for an hour: from
// then on, the clocks that run during sleep are one hour ahead. The monotonic clock is not changed.

#include <atomic>
#include <csignal>
#include <ctime>

#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

namespace {

constexpr time_t hour = 3600; // seconds

std::atomic<bool> hasSlept; // set by the signal handler
static_assert(std::atomic<bool>::is_always_lock_free);

bool runsDuringSleep(clockid_t clock) {
  return clock == CLOCK_REALTIME || clock == CLOCK_REALTIME_COARSE || clock == CLOCK_BOOTTIME;
}

[[gnu::constructor]] void installSignalHandler() {
  std::signal(SIGUSR1, [](int /*signal*/) { hasSlept = true; }); // glibc: restarts interrupted system calls
}

} // namespace

extern "C" {

int clock_gettime(clockid_t clock, timespec* time) noexcept {
  const auto result = static_cast<int>(syscall(SYS_clock_gettime, clock, time));
  if (result == 0 && hasSlept && runsDuringSleep(clock)) time->tv_sec += hour;
  return result;
}

int gettimeofday(timeval* time, void* /*zone*/) noexcept {
  timespec now{};
  const int result = clock_gettime(CLOCK_REALTIME, &now);
  *time = {now.tv_sec, now.tv_nsec / 1000};
  return result;
}
}
