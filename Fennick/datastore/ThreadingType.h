#pragma once

namespace Fennick {

// How a thread-confined container runs the blocks that use its value.
enum class ThreadingType {
    concurrent,  // reads in parallel, each write alone
    serial,      // everything one at a time
};

}  // namespace Fennick
