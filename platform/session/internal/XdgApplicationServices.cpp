#include <cerrno>
#include <utility>

#include "platform/bundle/Bundle.h"
#include "platform/runtime/Log.h"
#include "platform/runtime/Shared.h"
#include "platform/session/Workspace.h"
#include "platform/session/internal/AutostartFolder.h"
#include "platform/session/internal/XdgLoginItems.h"

namespace Platform {

namespace {

class XdgApplicationService final : public ApplicationService {
public:
    // An absent identifier belongs to a program outside any bundle.
    XdgApplicationService(std::optional<std::string> identifier, std::optional<StartedProgram> program)
        : identifier_(std::move(identifier)), program_(std::move(program))
    {
    }

    Status status() const override
    {
        if (!identifier_) return Status::notFound;
        const auto entry = AutostartFolder::read(*identifier_);
        if (!entry) return program_ ? Status::notRegistered : Status::notFound;
        if (!AutostartFolder::isEnabled(*entry)) return Status::requiresApproval;
        return AutostartFolder::startsSomething(*entry) ? Status::enabled : Status::notFound;
    }

    Result<void> register_() override
    {
        if (status() == Status::requiresApproval) return refused("register", EPERM);
        if (!program_ || !identifier_) return refused("register", ENOENT);
        return AutostartFolder::enable(*identifier_, program_->name, program_->path);
    }

    Result<void> unregister() override
    {
        const Status now = status();
        if (now == Status::requiresApproval) return refused("unregister", EPERM);
        if (now == Status::notRegistered || !identifier_) return refused("unregister", ENOENT);
        return AutostartFolder::remove(*identifier_);
    }

private:
    Error refused(const char* call, int code) const
    {
        return Error::fromErrno(call, identifier_.value_or("main program"), code);
    }

    std::optional<std::string> identifier_;
    std::optional<StartedProgram> program_;
};

}  // namespace

ApplicationServices& ApplicationServices::shared()
{
    return Shared<ApplicationServices>::get([] { return std::make_unique<XdgApplicationServices>(); });
}

std::shared_ptr<ApplicationService> XdgApplicationServices::mainAppService()
{
    return std::make_shared<XdgApplicationService>(Bundle::main().bundleIdentifier(), mainProgram());
}

std::shared_ptr<ApplicationService> XdgApplicationServices::loginItemService(const std::string& identifier)
{
    return std::make_shared<XdgApplicationService>(identifier, loginItemProgram(identifier));
}

void XdgApplicationServices::openSystemSettingsLoginItems()
{
    const auto page = Url::parse("x-apple.systempreferences:com.apple.LoginItems-Settings.extension");
    if (!page) return;
    if (const auto opened = Workspace::shared().openURL(*page); !opened) log(opened.error().message());
}

}  // namespace Platform
