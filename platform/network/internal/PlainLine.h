#pragma once

#include "platform/network/internal/Transfer.h"

namespace Platform {

// A handle with its connections, for transfers on the calling thread, one after another.
class PlainLine {
public:
    PlainLine();

    // Waits for the transfer's end, at most until its deadline.
    FetchOutcome perform(Transfer& transfer);

private:
    FetchOutcome waitFor(Transfer& transfer);

    EasyHandle easy_;  // taken out of the set before the set goes
    MultiHandle multi_;
};

}  // namespace Platform
