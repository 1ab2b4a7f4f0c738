#include "tests/support/http/TlsIdentity.h"

#include <stdexcept>

#include <openssl/ssl.h>

#include "tests/support/ChildProcess.h"

namespace Tests {

TlsIdentity::TlsIdentity() : context_(SSL_CTX_new(TLS_server_method()), SSL_CTX_free)
{
    const std::string key = folder_ / "key.pem";
    ChildProcess maker({"openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:P-256", "-nodes",
                        "-subj", "/CN=test", "-addext", "subjectAltName=IP:127.0.0.1", "-days", "1",  //
                        "-keyout", key, "-out", certificate_},
                       {.streams = ChildStreams::silent});
    const bool isReady = maker.wait() == 0 &&
                         SSL_CTX_use_certificate_file(context_.get(), certificate_.c_str(), SSL_FILETYPE_PEM) == 1 &&
                         SSL_CTX_use_PrivateKey_file(context_.get(), key.c_str(), SSL_FILETYPE_PEM) == 1;
    if (!isReady) throw std::runtime_error("no certificate");
}

}  // namespace Tests
