#include "tests/support/http/TlsIdentity.h"

#include <memory>

#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/ssl.h>
#include <openssl/x509v3.h>

namespace Tests {

namespace {

template <auto release>
struct Free {
    template <typename T>
    void operator()(T* object) const
    {
        release(object);
    }
};
using Key = std::unique_ptr<EVP_PKEY, Free<EVP_PKEY_free>>;
using Certificate = std::unique_ptr<X509, Free<X509_free>>;

Certificate makeCertificate(EVP_PKEY* key)
{
    constexpr long day = 24 * 60 * 60;
    Certificate certificate(X509_new());
    X509_set_version(certificate.get(), X509_VERSION_3);
    ASN1_INTEGER_set(X509_get_serialNumber(certificate.get()), 1);
    X509_gmtime_adj(X509_getm_notBefore(certificate.get()), -day);
    X509_gmtime_adj(X509_getm_notAfter(certificate.get()), day);
    X509_set_pubkey(certificate.get(), key);
    X509_NAME* name = X509_get_subject_name(certificate.get());
    X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, reinterpret_cast<const unsigned char*>("test"), -1, -1, 0);
    X509_set_issuer_name(certificate.get(), name);
    const std::unique_ptr<X509_EXTENSION, Free<X509_EXTENSION_free>> address(
        X509V3_EXT_conf_nid(nullptr, nullptr, NID_subject_alt_name, "IP:127.0.0.1"));
    X509_add_ext(certificate.get(), address.get(), -1);
    X509_sign(certificate.get(), key, EVP_sha256());
    return certificate;
}

std::string pemOf(X509* certificate)
{
    const std::unique_ptr<BIO, Free<BIO_free>> memory(BIO_new(BIO_s_mem()));
    PEM_write_bio_X509(memory.get(), certificate);
    char* text = nullptr;
    const long length = BIO_get_mem_data(memory.get(), &text);
    return {text, static_cast<std::size_t>(length)};
}

}  // namespace

TlsIdentity::TlsIdentity() : context_(SSL_CTX_new(TLS_server_method()))
{
    const Key key(EVP_EC_gen("P-256"));
    const Certificate certificate = makeCertificate(key.get());
    SSL_CTX_use_certificate(context_.get(), certificate.get());
    SSL_CTX_use_PrivateKey(context_.get(), key.get());
    pem_ = pemOf(certificate.get());
}

TlsIdentity::~TlsIdentity() = default;

void TlsIdentity::Deleter::operator()(ssl_ctx_st* context) const
{
    SSL_CTX_free(context);
}

}  // namespace Tests
