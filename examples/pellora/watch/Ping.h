#pragma once

#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "Fennick/datastore/StringIdentifier.h"
#include "Fennick/web/WebRequest.h"
#include "examples/pellora/providers/Provider.h"

namespace Pellora {

// How long a web server takes to answer, in milliseconds ("ping"), and whether
// it answers well ("ping.state", with the number 1 or 0 behind the text). Asks
// at most twice a minute; the answer is shown by the update after it.
class Ping final : public Provider {
public:
    // A host or an http(s) URL; a host alone is asked by https.
    explicit Ping(std::string_view address);

    void update(double elapsed) override;

private:
    // Shared with the request under way, which may outlive the provider.
    struct Answer {
        std::mutex mutex;
        std::optional<Fennick::Outcome<Fennick::PingResult>> outcome;
    };

    void ask();
    void takeAnswer();

    const std::string url_;
    const NumberReading time_;
    const std::shared_ptr<Fennick::StringIdentifier> state_;
    std::shared_ptr<Answer> answer_;  // null while nothing is asked
    double sinceAsked_;
};

}  // namespace Pellora
