// The 40 Hz tick timer and the 1 Hz frame counter.
#pragma once

#include <atomic>
#include <cstdint>

// The only value the timer thread writes.
extern std::atomic<int32_t> tickCounter;
extern std::atomic<int32_t> framesThisSecond;
extern std::atomic<int32_t> framesPerSecond;

// Installs both timers ("Calibrating timers...").
void installTimers();
