#include "examples/pellora/table/TableDelegate.h"

namespace Pellora {

TableDelegate::TableDelegate(const Settings& settings, std::size_t refreshes)
    : settings_(settings), refreshes_(refreshes)
{
}

void TableDelegate::applicationDidFinishLaunching()
{
    monitor_ = std::make_unique<Monitor>(settings_);
    table_ = std::make_shared<LiveTable>(
        monitor_->readings(), [this] { return monitor_->keys(); }, TableOutput::standardOutput(), refreshes_,
        [] { Platform::Application::shared().terminate(); });
    monitor_->addListener(table_);
}

}  // namespace Pellora
