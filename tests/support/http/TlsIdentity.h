#pragma once

#include <memory>
#include <string>

struct ssl_ctx_st;

namespace Tests {

// A server's key and its certificate for 127.0.0.1, signed by itself, made
// anew for each test.
class TlsIdentity {
public:
    TlsIdentity();
    ~TlsIdentity();
    TlsIdentity(const TlsIdentity&) = delete;
    TlsIdentity& operator=(const TlsIdentity&) = delete;

    // What a client has to trust.
    const std::string& certificatePem() const { return pem_; }
    ssl_ctx_st* context() const { return context_.get(); }

private:
    struct Deleter {
        void operator()(ssl_ctx_st* context) const;
    };
    std::unique_ptr<ssl_ctx_st, Deleter> context_;
    std::string pem_;
};

}  // namespace Tests
