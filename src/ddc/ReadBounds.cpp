#include "ddc/ReadBounds.h"

#include "foundation/Trace.h"

bool CReadGuard::Continue(size_t gathered_I, bool progress_I) {
    ++mRounds;
    mStalled = progress_I && gathered_I > mGathered ? 0 : mStalled + 1;
    mGathered = gathered_I > mGathered ? gathered_I : mGathered;
    if (mStalled >= mBounds.stalledRounds || mRounds >= mBounds.rounds ||
        mGathered >= mBounds.bytes) {
        Trace("read ended after %i rounds, %i without progress, %zu bytes\n", mRounds, mStalled,
              mGathered);
        mExhausted = true;
        return false;
    }
    return true;
}
