#include "Fennick/Date.h"
#include "platform/runtime/Clock.h"
#include "platform/runtime/Shared.h"
#include "tests/fakes/VirtualClock.h"
#include "tests/fuzz/Fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Tests::ReplacedClock clock;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const Platform::Date date = Fennick::Date(text);
    require(std::isfinite(date.timeIntervalSince1970()), "every text gives an instant");
    if (date == Platform::Date::now()) return 0;
    const std::string written = Fennick::dateText(date, "yyyy-MM-dd hh:mm:ss");
    require(Fennick::Date(written) == date, "an instant of the morning reads back from its text");
    return 0;
}
