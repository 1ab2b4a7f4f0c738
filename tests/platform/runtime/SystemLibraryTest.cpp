#include <gtest/gtest.h>

#include "platform/runtime/SystemLibrary.h"

TEST(SystemLibrary, IsUsableWithAllThatWasAskedForAndSaysWhatIsMissing)
{
    const struct {
        const char *library, *function, *missing;
    } cases[] = {{"libm.so.6", "sqrt", ""},
                 {"libm.so.6", "no_such_function", "no_such_function"},
                 {"libno-such-library.so.1", "sqrt", "libno-such-library.so.1"}};
    for (const auto& [name, function, missing] : cases) {
        Platform::SystemLibrary library(name);
        double (*const found)(double) = library.find(function);
        EXPECT_EQ(found ? found(9) : 0, library.isUsable() ? 3 : 0);
        EXPECT_NE(library.failure().find(missing), std::string::npos) << library.failure();
        EXPECT_EQ(library.isUsable(), *missing == '\0');
    }
}
