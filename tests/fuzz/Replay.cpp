// Runs a fuzz target over the files of the folders named as arguments.
#include "tests/fuzz/Fuzz.h"

int main(int argc, char** argv)
{
    const auto inputs = inputsIn(argc, argv);
    for (const auto& input : inputs) LLVMFuzzerTestOneInput(input.data(), input.size());
    std::printf("%zu inputs\n", inputs.size());
    return inputs.empty() ? 1 : 0;
}
