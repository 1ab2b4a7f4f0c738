#pragma once

namespace Launcher {

// The anchor by which the launcher's own resource bundle is looked up.
class ResourceBundleClass {};

}  // namespace Launcher
