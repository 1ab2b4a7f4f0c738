#include "bench/datastore/Measure.h"

// Prints our time, a peer's in the same run, and how many times as fast we are.
int main()
{
    Bench::pinTo(0);
    Bench::locks();
    Bench::lookups();
    Bench::readings();
    Bench::texts();
    Bench::growth();
}
