#include "examples/pellora/table/TableDelegate.h"

#include <utility>

namespace Pellora {

TableDelegate::TableDelegate(std::unique_ptr<Monitor> monitor, std::size_t refreshes)
    : monitor_(std::move(monitor)), refreshes_(refreshes)
{
}

void TableDelegate::applicationDidFinishLaunching()
{
    table_ = std::make_shared<LiveTable>(
        monitor_->readings(), [this] { return monitor_->keys(); }, TableOutput::standardOutput(), refreshes_,
        [] { Platform::Application::shared().terminate(); });
    monitor_->addListener(table_);
}

}  // namespace Pellora
