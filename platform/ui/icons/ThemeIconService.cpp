#include "platform/ui/icons/ThemeIconService.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <sstream>

#include <sys/stat.h>

#include "platform/bundle/Bundle.h"
#include "platform/files/TypeIdentifier.h"
#include "platform/runtime/Environment.h"
#include "platform/runtime/FileBytes.h"
#include "platform/ui/Image.h"
#include "platform/ui/icons/DeviceIconNames.h"
#include "platform/ui/icons/IconTheme.h"

namespace Platform {
namespace {

constexpr double iconPoints = 32;
constexpr std::size_t largestDatabase = 16 << 20;
constexpr const char* anyFile = "text-x-generic";
constexpr const char* anyProgram = "application-x-executable";
constexpr const char* settings = "preferences-system";

struct WellKnown {
    std::string_view ending;
    const char* themeName;
};

// What has no picture of its own by the end of its path.
constexpr WellKnown wellKnown[] = {
    {"/System Settings.app", settings},
    {"/System Preferences.app", settings},
    {".prefPane", settings},
    {".app", anyProgram},
};

using Names = std::vector<std::string>;

// Loads the theme's icon in the resolution that it is drawn in; null where the theme has none.
ImageRef themed(const Names& names)
{
    if (!IconTheme::shared().icon(names, int(iconPoints))) return nullptr;
    return std::make_shared<Image>(Size{iconPoints, iconPoints}, [names](GraphicsContext& context) {
        const double pixels = std::clamp(iconPoints * context.pixelsPerPoint().width, 1.0, 1024.0);
        const ImageRef icon = IconTheme::shared().icon(names, int(std::lround(pixels)));
        if (icon) icon->draw(Rect::of(0, 0, iconPoints, iconPoints), {}, CompositingOperation::sourceOver, 1);
    });
}

using GenericIcons = std::map<std::string, std::string, std::less<>>;

// Lines of "application/zip:package-x-generic" in the session's data folders, the first of a type counting.
GenericIcons readGenericIcons()
{
    GenericIcons icons;
    std::istringstream folders(Environment::shared().dataHome() + ":" +
                               Environment::shared().variable("XDG_DATA_DIRS").value_or("") +
                               ":/usr/local/share:/usr/share");
    for (std::string folder, line; std::getline(folders, folder, ':');) {
        const auto bytes = readFileBytes(folder + "/mime/generic-icons", largestDatabase);
        std::istringstream lines(bytes ? *bytes : "");
        while (std::getline(lines, line)) {
            const std::size_t colon = line.find(':');
            if (colon != std::string::npos) icons.emplace(line.substr(0, colon), line.substr(colon + 1));
        }
    }
    return icons;
}

// What a type without an icon of its own is shown as: the type database's word, else by its first half.
std::string genericIcon(const std::string& mime)
{
    static const GenericIcons icons = readGenericIcons();
    const auto found = icons.find(mime);
    return found != icons.end() ? found->second : mime.substr(0, mime.find('/')) + "-x-generic";
}

// "text/x-csrc": text-x-csrc, else any text, else any file.
Names namesForMime(const std::string& mime)
{
    if (mime == "inode/directory") return {"folder"};
    std::string own = mime;
    std::ranges::replace(own, '/', '-');
    return {own, genericIcon(mime), anyFile};
}

long long changeTime(const std::string& path)
{
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) return -1;
    return static_cast<long long>(status.st_mtim.tv_sec) * 1'000'000'000 + status.st_mtim.tv_nsec;
}

bool isFolder(const std::string& path)
{
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

ImageRef sizedIcon(ImageRef image)
{
    if (image) image->setSize({iconPoints, iconPoints});
    return image;
}

// The file that the bundle names, with or without its ending.
ImageRef bundleIcon(const Bundle& bundle)
{
    for (const char* key : {"CFBundleIconFile", "CFBundleIconName"}) {
        const PropertyList* value = bundle.infoDictionary().find(key);
        const std::string* name = value ? value->text() : nullptr;
        if (!name) continue;
        for (const char* ending : {"", "icns", "png", "svg"}) {
            const auto file = bundle.urlForResource(*name, ending);
            if (ImageRef icon = file ? Image::fromFile(*file) : nullptr) return sizedIcon(icon);
        }
    }
    return nullptr;
}

}  // namespace

ImageRef ThemeIconService::applicationIcon(const std::string& path)
{
    const long long changed = changeTime(path + "/Contents/Info.plist");
    const auto known = applications_.find(path);
    if (known != applications_.end() && known->second.changed == changed) return known->second.icon;
    const auto bundle = Bundle::open(path);
    const ImageRef icon = bundle ? bundleIcon(*bundle) : nullptr;
    applications_[path] = {changed, icon};
    return icon;
}

ImageRef ThemeIconService::iconForFile(const std::string& path)
{
    const std::string plain = Url::fromPath(path, false).path();
    const Url url = Url::fromPath(plain);
    if (isPackage(plain) && isFolder(plain)) {
        if (ImageRef icon = applicationIcon(plain)) return icon;
    }
    if (plain.ends_with(".icns")) {
        if (ImageRef icon = sizedIcon(Image::fromFile(url))) return icon;
    }
    for (const WellKnown& each : wellKnown) {
        if (plain.ends_with(each.ending)) return themed({each.themeName, anyFile});
    }
    if (isFolder(plain)) return themed({"folder"});
    const auto type = typeIdentifier(url);
    const ImageRef icon = type ? iconForContentType(*type) : nullptr;
    return icon ? icon : iconForFileType(url.pathExtension());
}

ImageRef ThemeIconService::iconForContentType(std::string_view type)
{
    const auto known = types_.find(type);
    if (known != types_.end()) return known->second;
    const auto mime = mimeTypeOf(type);
    const ImageRef icon = themed(mime ? namesForMime(*mime) : deviceIconNames(type));
    types_.emplace(type, icon);
    return icon;
}

ImageRef ThemeIconService::iconForFileType(std::string_view extension)
{
    const auto type = typeIdentifierForExtension(extension);
    const ImageRef icon = type ? iconForContentType(*type) : nullptr;
    return icon ? icon : themed({anyFile});
}

ImageRef ThemeIconService::imageFromFile(const Url& url)
{
    return Image::fromFile(url);
}

}  // namespace Platform
