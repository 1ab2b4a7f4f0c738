#pragma once

#include <exception>
#include <string>

namespace Platform {

// Why a URL could not be loaded. what() joins the description and the URL.
class URLError : public std::exception {
public:
    // The numbers are the URL loading system's own.
    enum class Code {
        unknown = -1,
        cancelled = -999,
        badURL = -1000,  // also a request that HTTP cannot carry
        timedOut = -1001,
        unsupportedURL = -1002,
        cannotFindHost = -1003,
        cannotConnectToHost = -1004,
        networkConnectionLost = -1005,
        httpTooManyRedirects = -1007,
        badServerResponse = -1011,
        cannotDecodeContentData = -1016,
        cannotParseResponse = -1017,
        fileDoesNotExist = -1100,
        dataLengthExceedsMaximum = -1103,
        secureConnectionFailed = -1200,
        serverCertificateUntrusted = -1202,
    };

    // Without a description the code's own words are taken.
    URLError(Code code, std::string failingUrl, std::string description = {});

    Code code() const { return code_; }
    // As the request named it.
    const std::string& failingUrl() const { return failingUrl_; }
    const std::string& description() const { return description_; }
    const char* what() const noexcept override { return what_.c_str(); }

private:
    Code code_;
    std::string failingUrl_;
    std::string description_;
    std::string what_;
};

}  // namespace Platform
