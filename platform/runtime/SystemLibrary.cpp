#include "platform/runtime/SystemLibrary.h"

#include <dlfcn.h>

namespace Platform {

namespace {

std::string lastFailure(const char* subject)
{
    const char* words = ::dlerror();
    return words ? words : subject;
}

}  // namespace

SystemLibrary::SystemLibrary(const char* name) : handle_(::dlopen(name, RTLD_LAZY | RTLD_LOCAL))
{
    if (!handle_) failure_ = lastFailure(name);
}

SystemLibrary::Function SystemLibrary::find(const char* function)
{
    void* const address = handle_ ? ::dlsym(handle_, function) : nullptr;
    if (!address && failure_.empty()) failure_ = lastFailure(function);
    return Function(address);
}

}  // namespace Platform
