#pragma once
// The guard of every loop that gathers a display's answer piece by piece. A real scaler advances
// with each piece and stops long before the bounds; one that repeats itself, or streams without
// end, must not hold the program. A loop asks Continue after each round.

#include <cstddef>

struct SReadBounds {
    int stalledRounds; // rounds in a row that add nothing before the read ends
    int rounds;        // rounds in all
    size_t bytes;      // bytes gathered in all
};

class CReadGuard {
public:
    explicit CReadGuard(const SReadBounds& bounds_I) : mBounds(bounds_I) {}
    // Counts a round that left gathered_I bytes in all; false when the loop must end. A round
    // that gathers nothing new, or that the caller found no progress, is a stalled one.
    bool Continue(size_t gathered_I, bool progress_I = true);
    // Whether the loop ended on a bound rather than on the display's own end.
    bool Exhausted() const { return mExhausted; }

private:
    SReadBounds mBounds;
    int mRounds = 0;
    int mStalled = 0;
    size_t mGathered = 0;
    bool mExhausted = false;
};
