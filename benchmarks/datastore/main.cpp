#include <string_view>

#include "benchmarks/datastore/Measure.h"

// With "proof" it compares our number texts with the library's instead, for a minute or two.
int main(int argc, char** argv)
{
    if (argc > 1 && std::string_view(argv[1]) == "proof") return Bench::textProof() == 0 ? 0 : 1;
    Bench::pinTo(0);
    Bench::locks();
    Bench::lookups();
    Bench::readings();
    Bench::texts();
    Bench::growth();
}
