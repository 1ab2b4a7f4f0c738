#include "platform/runtime/Result.h"

#include <system_error>

namespace Platform {

std::string Error::message() const
{
    std::string text = call;
    if (!subject.empty()) text += " " + subject;
    return reason.empty() ? text : text + ": " + reason;
}

Error Error::fromErrno(std::string_view call, std::string_view subject, int code)
{
    return {std::string(call), std::string(subject), code, std::generic_category().message(code)};
}

}  // namespace Platform
