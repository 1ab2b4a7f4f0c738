// Versions, durations, rates and dates beside the C library, the package manager, ICU and fmt.
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include <dpkg/dpkg.h>
#include <dpkg/version.h>
#include <fmt/format.h>
#include <unicode/coll.h>
#include <unicode/smpdtfmt.h>

#include "Fennick/Date.h"
#include "Fennick/DateUtilities.h"
#include "Fennick/TimeUtilities.h"
#include "Fennick/Version.h"
#include "Fennick/disk/DiskUtilities.h"
#include "benchmarks/Interleaved.h"

namespace {

const std::vector<std::string> texts = {
    "1.9",    "1.10",   "2.10.1", "2.10.2", "10.0.19045", "10.0.19044",     "3.0beta",    "3.0rc1",
    "14.2.1", "14.2.1", "1.0",    "1",      "128.0.6",    "128.0.6613.119", "2024.09.30", "2024.9.30"};

template <typename Compare>
void eachPair(Compare compare)
{
    for (std::size_t i = 0; i + 1 < texts.size(); ++i) Bench::keep(compare(i, i + 1));
}

void versions()
{
    std::vector<Fennick::Version> ours;
    std::vector<dpkg_version> packages;
    for (const auto& text : texts) {
        ours.emplace_back(text);
        packages.push_back({0, text.c_str(), ""});
    }
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Collator> collator(icu::Collator::createInstance(icu::Locale("en_US"), status));
    collator->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
    Bench::compare(
        "version comparison",
        {{"Fennick", [&] { eachPair([&](auto i, auto j) { return ours[i] < ours[j]; }); }},
         {"strverscmp",
          [&] { eachPair([&](auto i, auto j) { return strverscmp(texts[i].c_str(), texts[j].c_str()); }); }},
         {"dpkg", [&] { eachPair([&](auto i, auto j) { return dpkg_version_compare(&packages[i], &packages[j]); }); }},
         {"ICU numeric collation", [&] {
              eachPair([&](auto i, auto j) {
                  UErrorCode s = U_ZERO_ERROR;
                  return collator->compareUTF8(texts[i], texts[j], s);
              });
          }}});
    const Fennick::Version nines(std::string(1'000'000, '9'));
    const Fennick::Version eights(std::string(999'999, '9') + "8");
    Bench::compare("version of 1 MB of digits",
                   {{"Fennick", [&] { Bench::keep(nines < eights); }},
                    {"strverscmp", [&] { Bench::keep(strverscmp(nines.string().c_str(), eights.string().c_str())); }}});
}

void durations()
{
    long seconds = 90'061;
    Bench::compare("clock text",
                   {{"Fennick", [&] { Bench::keep(Fennick::DateUtilities::clockText(seconds)); }},
                    {"fmt", [&] {
                         Bench::keep(fmt::format("{:02}:{:02}:{:02}:{:02}", seconds / 86'400, seconds % 86'400 / 3'600,
                                                 seconds % 3'600 / 60, seconds % 60));
                     }}});
    Bench::compare("hours and minutes",
                   {{"Fennick", [&] { Bench::keep(Fennick::DateUtilities::hoursMinutesText(seconds)); }},
                    {"fmt", [&] { Bench::keep(fmt::format("{}h {}m", seconds / 3'600, seconds % 3'600 / 60)); }}});
    unsigned long nanoseconds = 61'234'000'000;
    Bench::compare("stopwatch",
                   {{"Fennick", [&] { Bench::keep(Fennick::TimeUtilities::stopwatchText(nanoseconds)); }},
                    {"fmt", [&] {
                         Bench::keep(fmt::format("{:02}:{:02}.{:03}", nanoseconds / 60'000'000'000,
                                                 nanoseconds / 1'000'000'000 % 60, nanoseconds / 1'000'000 % 1'000));
                     }}});
}

void rates()
{
    std::uint64_t rate = 123'456'789;
    Bench::compare("transfer rate", {{"Fennick", [&] { Bench::keep(Fennick::DiskUtilities::rateText(rate, false)); }},
                                     {"fmt", [&] {
                                          const double megabytes = static_cast<double>(rate) / (1 << 20);
                                          Bench::keep(fmt::format("{:.2f} MB/s", megabytes));
                                      }}});
    Bench::compare("compact transfer rate",
                   {{"Fennick", [&] { Bench::keep(Fennick::DiskUtilities::compactRateText(rate, true)); }},
                    {"fmt", [&] { Bench::keep(fmt::format("{} Mb/s", rate / 125'000)); }}});
}

void dates()
{
    UErrorCode status = U_ZERO_ERROR;
    icu::SimpleDateFormat formatter("yyyy-MM-dd HH:mm:ss", icu::Locale("en_US"), status);
    double at = 1'704'110'400;
    Bench::compare(
        "date text",
        {{"Fennick", [&] { Bench::keep(Fennick::dateText(Platform::Date(at += 1), "yyyy-MM-dd HH:mm:ss")); }},
         {"ICU formatter reused",
          [&] {
              icu::UnicodeString text;
              std::string utf8;
              formatter.format((at += 1) * 1'000, text);
              Bench::keep(text.toUTF8String(utf8));
          }},
         {"ICU formatter made new", [&] {
              UErrorCode s = U_ZERO_ERROR;
              icu::SimpleDateFormat fresh("yyyy-MM-dd HH:mm:ss", icu::Locale("en_US"), s);
              icu::UnicodeString text;
              std::string utf8;
              fresh.format((at += 1) * 1'000, text);
              Bench::keep(text.toUTF8String(utf8));
          }}});
}

}  // namespace

int main()
{
    versions();
    durations();
    rates();
    dates();
}
