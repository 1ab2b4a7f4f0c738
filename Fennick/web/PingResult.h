#pragma once

namespace Fennick {

// How a server answered a HEAD request.
struct PingResult {
    bool isSuccess = false;   // an HTTP response with a status from 200 to 299
    double responseTime = 0;  // seconds by the wall clock, from the hand-over to the response

    friend bool operator==(const PingResult&, const PingResult&) = default;
};

}  // namespace Fennick
