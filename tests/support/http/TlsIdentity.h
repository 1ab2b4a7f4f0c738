#pragma once

#include <memory>

#include "tests/support/TemporaryDirectory.h"

struct ssl_ctx_st;

namespace Tests {

// A server's key and its certificate for 127.0.0.1, signed by itself, made
// anew for each test.
class TlsIdentity {
public:
    TlsIdentity();

    // The file that a client has to trust.
    const std::string& certificate() const { return certificate_; }
    ssl_ctx_st* context() const { return context_.get(); }

private:
    TemporaryDirectory folder_;
    std::string certificate_ = folder_ / "certificate.pem";
    std::shared_ptr<ssl_ctx_st> context_;
};

}  // namespace Tests
